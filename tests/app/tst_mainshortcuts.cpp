#include "app/AppController.h"
#include "display/DisplayManager.h"
#include "display/OverlayManager.h"
#include "settings/SettingsManager.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {
class NullPassThrough final : public WindowPassThrough
{
public:
    void setPassThrough(QWindow *, bool) override { }
    void excludeFromCapture(QWindow *) override { }
};

class NoButtons final : public PointerButtons
{
public:
    int buttonMask() const override { return 0; }
};
} // namespace

// The key logic of the main document: command labels, the keystroke filter
// and the pen-colour cycle, called on the loaded document.
class TestMainShortcuts : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<SettingsManager> settings;
    std::unique_ptr<DisplayManager> displays;
    std::unique_ptr<OverlayManager> overlays;
    std::unique_ptr<AppController> controller;
    std::unique_ptr<QQmlApplicationEngine> engine;
    QObject *root = nullptr;

    QString call(const char *function, const QString &argument)
    {
        QString result;
        const bool ok = QMetaObject::invokeMethod(root, function, Q_RETURN_ARG(QString, result),
                                                  Q_ARG(QString, argument));
        if (!ok)
            qFatal("cannot call %s", function);
        return result;
    }

private slots:
    void init()
    {
        QSettings().clear();
        settings = std::make_unique<SettingsManager>();
        displays = std::make_unique<DisplayManager>(settings.get());
        overlays = std::make_unique<OverlayManager>(std::make_unique<NullPassThrough>());
        controller =
            std::make_unique<AppController>(settings.get(), overlays.get(), nullptr, nullptr,
                                            displays.get(), nullptr, std::make_unique<NoButtons>());
        engine = std::make_unique<QQmlApplicationEngine>();
        QQmlContext *context = engine->rootContext();
        const QVariant none = QVariant::fromValue<QObject *>(nullptr);
        context->setContextProperty(QStringLiteral("appController"), controller.get());
        context->setContextProperty(QStringLiteral("settingsManager"), settings.get());
        context->setContextProperty(QStringLiteral("displayManager"), displays.get());
        for (const char *name : { "drawingModel", "renderBackendManager", "macPermissions",
                                  "winAcrylic", "hotkeyManager" })
            context->setContextProperty(QString::fromLatin1(name), none);
        engine->load(QUrl(QStringLiteral("qrc:/qt/qml/GlimmoraApp/Main.qml")));
        QCOMPARE(engine->rootObjects().size(), 1);
        root = engine->rootObjects().first();
    }

    void cleanup()
    {
        engine.reset();
        controller.reset();
        overlays.reset();
        displays.reset();
        settings.reset();
    }

    void mainWindowShape()
    {
        QCOMPARE(root->property("title").toString(), QStringLiteral("Glimmora"));
        QCOMPARE(root->property("width").toInt(), 1);
        const auto flags = root->property("flags").value<Qt::WindowFlags>();
        QVERIFY(flags.testFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool));
    }

    void commandLabels_data()
    {
        QTest::addColumn<QString>("combo");
        QTest::addColumn<QString>("label");
        QTest::newRow("F5 pauses") << "F5"
                                   << "Pause";
        QTest::newRow("Esc is the cursor") << "Esc"
                                           << "Cursor";
        QTest::newRow("pen") << "Alt+3"
                             << "Pen";
        QTest::newRow("quit") << "Ctrl+Shift+Q"
                              << "Quit";
        QTest::newRow("capture keys carry no label") << "Ctrl+Shift+S"
                                                     << "";
        QTest::newRow("exact text only") << "alt+3"
                                         << "";
        QTest::newRow("plain letters carry none") << "C"
                                                  << "";
    }

    void commandLabels()
    {
        QFETCH(QString, combo);
        QFETCH(QString, label);
        QCOMPARE(call("commandLabel", combo), label);
    }

    void rebindingMovesTheLabel()
    {
        settings->setHotkeyForAction(QStringLiteral("pen"), QStringLiteral("Alt+P"));
        QCOMPARE(call("commandLabel", QStringLiteral("Alt+3")), QString());
        QCOMPARE(call("commandLabel", QStringLiteral("Alt+P")), QStringLiteral("Pen"));
        // A sequence shared by two actions reads as the first in the table.
        settings->setHotkeyForAction(QStringLiteral("redo"), QStringLiteral("Ctrl+Z"));
        QCOMPARE(call("commandLabel", QStringLiteral("Ctrl+Z")), QStringLiteral("Undo"));
    }

    void keystrokeFilter_data()
    {
        QTest::addColumn<QString>("combo");
        QTest::addColumn<QString>("switchedOff");
        QTest::addColumn<bool>("shown");

        QTest::newRow("letters are hidden by default") << "A"
                                                       << "" << false;
        QTest::newRow("modified keys are shown") << "Ctrl+C"
                                                 << "" << true;
        QTest::newRow("function key") << "F9"
                                      << "" << true;
        QTest::newRow("function keys switched off") << "F9"
                                                    << "showFunctionKeys" << false;
        QTest::newRow("command keys ignore the class switches") << "F5"
                                                                << "showFunctionKeys" << true;
        QTest::newRow("modified switched off") << "Ctrl+C"
                                               << "showModifierKeys" << false;
        QTest::newRow("brackets are never shown") << "["
                                                  << "" << false;
        QTest::newRow("master switch hides even commands") << "F5"
                                                           << "keystrokesEnabled" << false;
        QTest::newRow("Esc is a command key") << "Esc"
                                              << "showNavigationKeys" << true;
    }

    void keystrokeFilter()
    {
        QFETCH(QString, combo);
        QFETCH(QString, switchedOff);
        QFETCH(bool, shown);
        if (!switchedOff.isEmpty())
            QVERIFY(settings->setProperty(switchedOff.toLatin1().constData(), false));
        QSignalSpy spy(controller.get(), &AppController::keystrokeChanged);
        QMetaObject::invokeMethod(root, "reportKeystroke", Q_ARG(QString, combo));
        QCOMPARE(spy.count(), shown ? 1 : 0);
        if (shown)
            QCOMPARE(controller->lastKeystroke(), combo);
    }

    void alphanumericKeysWhenSwitchedOn()
    {
        settings->setShowAlphaNumericKeys(true);
        QSignalSpy spy(controller.get(), &AppController::keystrokeChanged);
        QMetaObject::invokeMethod(root, "reportKeystroke", Q_ARG(QString, QStringLiteral("7")));
        QMetaObject::invokeMethod(root, "reportKeystroke", Q_ARG(QString, QStringLiteral("ab")));
        QCOMPARE(spy.count(), 1);
    }

    void colourCycle_data()
    {
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("next");
        QTest::newRow("red to yellow") << "#F05D5D"
                                       << "#F4C24A";
        QTest::newRow("case does not matter") << "#5ec27a"
                                              << "#5DA8F0";
        QTest::newRow("text wraps to red") << "#ECEEF2"
                                           << "#F05D5D";
        QTest::newRow("a colour off the palette counts as red") << "#123456"
                                                                << "#F4C24A";
        QTest::newRow("eight digits are off the palette") << "#FFF05D5D"
                                                          << "#F4C24A";
    }

    void colourCycle()
    {
        QFETCH(QString, current);
        QFETCH(QString, next);
        QCOMPARE(call("nextPenColor", current), next);
    }

    void winIsMetaForQt()
    {
        settings->setHotkeyForAction(QStringLiteral("spotlight"), QStringLiteral("super+x"));
        QCOMPARE(call("sequenceFor", QStringLiteral("spotlight")), QStringLiteral("Meta+X"));
    }
};

int main(int argc, char *argv[])
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    QGuiApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("GlimmoraShortcutTest"));
    TestMainShortcuts test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mainshortcuts.moc"
