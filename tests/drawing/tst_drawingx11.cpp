#include "drawing/DrawingModel.h"

#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QScreen>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

// Both drawing layers in a transparent overlay window on the LEFT monitor of
// the test server, with stand-in managers and the real stroke model. Input
// goes through XTest, pixels come from a grab of the root window.
class TestDrawingX11 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void dragPreviewsThenCommits();
    void eraserDragClearsCommittedPaint();

private:
    void xdotool(const QStringList &arguments);
    void drag(QPoint from, QPoint to, bool release = true);
    QImage grabLeft();
    static int redPixelsAlong(const QImage &image, int y, int fromX, int toX);

    QQmlEngine m_engine;
    DrawingModel m_model;
    QObject *m_settings = nullptr;
    QObject *m_app = nullptr;
    std::unique_ptr<QQuickWindow> m_window;
    QScreen *m_left = nullptr;
};

void TestDrawingX11::initTestCase()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        QSKIP("needs the X server of scripts/with-test-display.sh");
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen->name() == QLatin1String("LEFT"))
            m_left = screen;
    }
    QVERIFY2(m_left, "no monitor named LEFT");

    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    const QList<std::pair<QString, QString>> mocks {
        { QStringLiteral("appController"), QStringLiteral("MockAppController.qml") },
        { QStringLiteral("settingsManager"), QStringLiteral("MockSettingsManager.qml") },
        { QStringLiteral("displayManager"), QStringLiteral("MockDisplayManager.qml") },
    };
    for (const auto &[name, file] : mocks) {
        QQmlComponent component(&m_engine,
                                QUrl::fromLocalFile(QStringLiteral(MOCKS_DIR "/") + file));
        QObject *object = component.create();
        QVERIFY2(object, qPrintable(component.errorString()));
        object->setParent(&m_engine);
        m_engine.rootContext()->setContextProperty(name, object);
        if (name == QLatin1String("settingsManager"))
            m_settings = object;
        else if (name == QLatin1String("appController"))
            m_app = object;
    }
    m_engine.rootContext()->setContextProperty(QStringLiteral("drawingModel"), &m_model);
    m_app->setProperty("currentTool", QStringLiteral("pen"));
    m_settings->setProperty("brushSize", 8);
    m_settings->setProperty("clickRippleEnabled", false);

    QQmlComponent component(&m_engine);
    component.setData(R"(
        import QtQuick
        import GlimmoraApp
        Window {
            flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.Tool
            color: "transparent"
            CommittedDrawingLayer { anchors.fill: parent }
            DrawingInputLayer { anchors.fill: parent }
        })",
                      QUrl(QStringLiteral("qrc:/tst_drawingx11/Overlay.qml")));
    m_window.reset(qobject_cast<QQuickWindow *>(component.create()));
    QVERIFY2(m_window, qPrintable(component.errorString()));
    m_window->setScreen(m_left);
    m_window->setGeometry(m_left->geometry());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QTest::qWait(300);
}

void TestDrawingX11::xdotool(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    QVERIFY(process.waitForFinished(5000));
    QCOMPARE(process.exitCode(), 0);
}

// Moves in small steps, letting the window take each event as a user's
// pointer would give them.
void TestDrawingX11::drag(QPoint from, QPoint to, bool release)
{
    xdotool({ "mousemove", QString::number(from.x()), QString::number(from.y()) });
    QTest::qWait(50);
    xdotool({ "mousedown", "1" });
    QTest::qWait(50);
    const int steps = 12;
    for (int i = 1; i <= steps; ++i) {
        const QPoint point = from + (to - from) * i / steps;
        xdotool({ "mousemove", QString::number(point.x()), QString::number(point.y()) });
        QTest::qWait(25);
    }
    if (release) {
        xdotool({ "mouseup", "1" });
        QTest::qWait(50);
    }
    QTest::qWait(300); // a frame or two to reach the screen
}

QImage TestDrawingX11::grabLeft()
{
    return m_left->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
}

int TestDrawingX11::redPixelsAlong(const QImage &image, int y, int fromX, int toX)
{
    int count = 0;
    for (int x = fromX; x <= toX; ++x) {
        const QColor color = image.pixelColor(x, y);
        // The pen colour #FF5252 over grey, allowing for filtering.
        if (color.red() > 220 && color.green() < 120 && color.blue() < 120)
            ++count;
    }
    return count;
}

void TestDrawingX11::dragPreviewsThenCommits()
{
    drag(QPoint(300, 300), QPoint(900, 300), false);
    QImage image = grabLeft();
    QCOMPARE(m_model.strokeList().size(), 0);
    QVERIFY2(redPixelsAlong(image, 300, 350, 850) > 480, "the preview shows under the pointer");

    xdotool({ "mouseup", "1" });
    QTest::qWait(400);
    QCOMPARE(m_model.strokeList().size(), 1);
    QVERIFY(m_model.strokeList().first().points.size() >= 10);
    image = grabLeft();
    QVERIFY2(redPixelsAlong(image, 300, 350, 850) > 480, "the committed stroke stays");
    // Away from the stroke the desktop shows through the transparent window.
    QCOMPARE(image.pixelColor(600, 600), QColor(0x80, 0x80, 0x80));
    QCOMPARE(redPixelsAlong(image, 340, 300, 900), 0);
}

void TestDrawingX11::eraserDragClearsCommittedPaint()
{
    m_app->setProperty("currentTool", QStringLiteral("eraser"));
    m_settings->setProperty("brushSize", 40);
    drag(QPoint(600, 200), QPoint(600, 400), false);
    // While dragging, a faint white trace marks the path; nothing is cleared yet.
    QImage image = grabLeft();
    const QColor trace = image.pixelColor(600, 250);
    QVERIFY2(trace.red() > 140 && trace.red() < 165 && trace.blue() == trace.red(),
             qPrintable(trace.name()));
    QVERIFY(redPixelsAlong(image, 300, 590, 610) > 0);

    xdotool({ "mouseup", "1" });
    QTest::qWait(400);
    m_app->setProperty("currentTool", QStringLiteral("pen"));
    QCOMPARE(m_model.strokeList().size(), 2);
    image = grabLeft();
    QCOMPARE(redPixelsAlong(image, 300, 590, 610), 0);
    QCOMPARE(image.pixelColor(600, 300), QColor(0x80, 0x80, 0x80));
    QVERIFY(redPixelsAlong(image, 300, 350, 550) > 190);
}

QTEST_MAIN(TestDrawingX11)
#include "tst_drawingx11.moc"
