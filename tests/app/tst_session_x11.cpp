#include "platform/linux/LinuxSessionCapabilities.h"

#include <QGuiApplication>
#include <QTest>

// What the program reports about the test display's X server, which has SHAPE
// and XInput 2 and a compositing manager, when it runs as in an X11 session.
class TestSessionX11 : public QObject
{
    Q_OBJECT

private slots:
    void reportsTheLiveServer()
    {
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
        const LinuxSessionCapabilities::Facts facts = LinuxSessionCapabilities::currentFacts();
        QVERIFY(facts.shapeExtension);
        QVERIFY(facts.xinput2Extension);
        QVERIFY(facts.compositingManager);

        qputenv("XDG_SESSION_TYPE", "x11");
        qunsetenv("WAYLAND_DISPLAY");
        const LinuxSessionCapabilities caps;
        QCOMPARE(caps.windowingBackend(), QStringLiteral("X11"));
        QVERIFY(caps.usesX11Backend());
        QVERIFY(caps.hotkeysAvailable());
        QVERIFY(caps.clickThroughAvailable());
        QVERIFY(caps.inputVisualizationAvailable());
        QVERIFY(!caps.portalRequired());
        QVERIFY(caps.magnifierAvailable());
        QVERIFY(!caps.summary().contains(QStringLiteral("Not available")));
    }
};

QTEST_MAIN(TestSessionX11)
#include "tst_session_x11.moc"
