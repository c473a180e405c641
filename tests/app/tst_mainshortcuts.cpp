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

    void commandLabels_data()
    {
        QTest::addColumn<QString>("combo");
        QTest::addColumn<QString>("label");
        const auto row = [](const char *combo, const char *label) {
            QTest::newRow(combo) << QString(combo) << QString(label);
        };
        row("F5", "Pause");
        row("Esc", "Cursor");
        row("Alt+3", "Pen");
        row("Ctrl+Shift+Q", "Quit");
        row("Ctrl+Shift+S", ""); // capture keys carry no label
        row("alt+3", ""); // exact text only
        row("C", ""); // plain letters carry none
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

        const auto row = [](const char *name, const char *combo, const char *off, bool shown) {
            QTest::newRow(name) << QString(combo) << QString(off) << shown;
        };
        row("letters are hidden by default", "A", "", false);
        row("modified keys are shown", "Ctrl+C", "", true);
        row("function key", "F9", "", true);
        row("function keys switched off", "F9", "showFunctionKeys", false);
        row("command keys ignore the class switches", "F5", "showFunctionKeys", true);
        row("modified switched off", "Ctrl+C", "showModifierKeys", false);
        row("brackets are never shown", "[", "", false);
        row("master switch hides even commands", "F5", "keystrokesEnabled", false);
        row("Esc is a command key", "Esc", "showNavigationKeys", true);
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
        const auto row = [](const char *name, const char *current, const char *next) {
            QTest::newRow(name) << QString(current) << QString(next);
        };
        row("red to yellow", "#F05D5D", "#F4C24A");
        row("case does not matter", "#5ec27a", "#5DA8F0");
        row("text wraps to red", "#ECEEF2", "#F05D5D");
        row("a colour off the palette counts as red", "#123456", "#F4C24A");
        row("eight digits are off the palette", "#FFF05D5D", "#F4C24A");
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
