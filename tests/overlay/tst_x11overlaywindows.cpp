// The overlay windows of a fully assembled controller on the real X server
// with its two monitors, over a plain X client that has the focus.
#include "AssembledApp.h"
#include "ProbeClient.h"
#include "XTestSession.h"
#include "app/AppController.h"
#include "display/DisplayManager.h"
#include "display/OverlayWindowManager.h"
#include "settings/SettingsManager.h"

#include <QApplication>
#include <QProcess>
#include <QQuickWindow>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>
#include <xcb/xcb.h>

namespace {

const QRect leftMonitor(0, 0, 1920, 1080);
const QRect rightMonitor(1920, 0, 1920, 1080);

bool xrandr(const QStringList &arguments)
{
    return QProcess::execute(QStringLiteral("xrandr"), arguments) == 0;
}

bool setRightMonitor(const QRect &geometry)
{
    return xrandr({ "--setmonitor", "RIGHT",
                    QStringLiteral("%1/508x%2/286+%3+%4")
                        .arg(geometry.width())
                        .arg(geometry.height())
                        .arg(geometry.x())
                        .arg(geometry.y()),
                    "none" });
}

QScreen *screenNamed(const QString &name)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        if (screen->name() == name)
            return screen;
    }
    return nullptr;
}

// The user's clicks come through another connection; the server must have
// read ours first, as it would have by the time a person clicks.
void syncQt()
{
    xcb_connection_t *connection =
        qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

class PressCounter : public QObject
{
public:
    int presses = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonPress)
            ++presses;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

class tst_X11OverlayWindows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void oneOverlayPerMonitor();
    void monitorsComeAndGoLive_data();
    void monitorsComeAndGoLive();
    void controlDisplayChangeSwapsWindows();
    void pauseHidesOnlySecondaries();
    void toolDecidesWhereClicksGo_data();
    void toolDecidesWhereClicksGo();
    void hideAllUnmapsEverything();

private:
    QString idOf(const char *screenName) const;
    QQuickWindow *windowOn(const QString &displayId) const;
    void verifyOnServer(QQuickWindow *window, const QRect &geometry);

    XTestSession m_user;
    ProbeClient m_client;
    std::unique_ptr<AssembledApp> m_app;
    SettingsManager *m_settings = nullptr;
    DisplayManager *m_displays = nullptr;
    AppController *m_controller = nullptr;
    QQuickWindow *m_main = nullptr;
    OverlayWindowManager *m_manager = nullptr;
};

void tst_X11OverlayWindows::initTestCase()
{
    QVERIFY2(QGuiApplication::platformName() == QLatin1String("xcb"), "needs the X server");
    QVERIFY2(screenNamed("LEFT") && screenNamed("RIGHT"), "needs the monitors LEFT and RIGHT");
    QVERIFY(m_user.isValid());
    // The client comes first: windows mapped later lie above it.
    QVERIFY(m_client.start(QRect(0, 0, 3840, 1080)));
    QTRY_COMPARE(m_user.inputFocus(), m_client.window());

    m_app = std::make_unique<AssembledApp>();
    QVERIFY(m_app->isValid());
    m_settings = &m_app->settings();
    // Past the first start: the welcome card would make the whole HUD take the mouse.
    m_settings->setFirstRunDone(true);
    m_displays = &m_app->displays();
    m_controller = &m_app->controller();
    m_main = m_app->mainWindow();
    m_manager = &m_app->windows();
    m_displays->setControlDisplay(idOf("LEFT"));
    QCOMPARE(m_displays->controlDisplayId(), idOf("LEFT"));
}

void tst_X11OverlayWindows::cleanupTestCase()
{
    m_manager = nullptr;
    m_app.reset();
}

void tst_X11OverlayWindows::cleanup()
{
    // Whatever failed, the next test and the next program find both monitors.
    if (!screenNamed("RIGHT") || screenNamed("RIGHT")->geometry() != rightMonitor) {
        // The server refuses to redefine a monitor in place.
        if (screenNamed("RIGHT")) {
            xrandr({ "--delmonitor", "RIGHT" });
            QTRY_VERIFY(!screenNamed("RIGHT"));
        }
        setRightMonitor(rightMonitor);
        QTRY_VERIFY(screenNamed("RIGHT") && screenNamed("RIGHT")->geometry() == rightMonitor);
    }
    if (!m_displays)
        return;
    m_displays->setControlDisplay(idOf("LEFT"));
    m_controller->setOverlayEnabled(true);
    m_controller->setTool(QStringLiteral("cursor"));
}

QString tst_X11OverlayWindows::idOf(const char *screenName) const
{
    return m_displays->displayIdForScreen(screenNamed(QString::fromLatin1(screenName)));
}

QQuickWindow *tst_X11OverlayWindows::windowOn(const QString &displayId) const
{
    return displayId == m_manager->currentControlId() ? m_main : m_manager->secondary(displayId);
}

void tst_X11OverlayWindows::verifyOnServer(QQuickWindow *window, const QRect &geometry)
{
    QVERIFY(window);
    const auto native = static_cast<uint32_t>(window->winId());
    QTRY_VERIFY(m_user.mappedWindowsOf(QCoreApplication::applicationPid()).contains(native));
    QTRY_COMPARE(m_user.geometry(native), geometry);
    QVERIFY(m_user.isOverrideRedirect(native));
}

void tst_X11OverlayWindows::oneOverlayPerMonitor()
{
    QCOMPARE(m_manager->currentControlId(), idOf("LEFT"));
    QCOMPARE(m_manager->secondaryIds(), QStringList { idOf("RIGHT") });
    verifyOnServer(m_main, leftMonitor);
    verifyOnServer(m_manager->secondary(idOf("RIGHT")), rightMonitor);
    // The controls window lies over the control display, above its overlay.
    verifyOnServer(m_manager->hudWindow(), leftMonitor);
    QCOMPARE(m_user.mappedWindowsOf(QCoreApplication::applicationPid()).size(), 3);
}

void tst_X11OverlayWindows::monitorsComeAndGoLive_data()
{
    QTest::addColumn<QRect>("pluggedBack");
    QTest::newRow("unplugged and plugged back as it was") << rightMonitor;
    QTest::newRow("plugged back at another size") << QRect(1920, 0, 1280, 1024);
}

void tst_X11OverlayWindows::monitorsComeAndGoLive()
{
    QFETCH(QRect, pluggedBack);
    const QString right = idOf("RIGHT");
    QVERIFY(xrandr({ "--delmonitor", "RIGHT" }));
    QTRY_VERIFY(!screenNamed("RIGHT"));
    QTRY_VERIFY(m_manager->secondaryIds().isEmpty());
    QTRY_COMPARE(m_user.mappedWindowsOf(QCoreApplication::applicationPid()).size(), 2);
    verifyOnServer(m_main, leftMonitor);

    QVERIFY(setRightMonitor(pluggedBack));
    QTRY_VERIFY(screenNamed("RIGHT"));
    QTRY_COMPARE(m_manager->secondaryIds().size(), 1);
    verifyOnServer(m_manager->secondary(m_manager->secondaryIds().constFirst()), pluggedBack);
    if (pluggedBack == rightMonitor)
        QCOMPARE(m_manager->secondaryIds().constFirst(), right);
}

void tst_X11OverlayWindows::controlDisplayChangeSwapsWindows()
{
    const QString left = idOf("LEFT");
    const QString right = idOf("RIGHT");
    m_displays->setControlDisplay(right);
    QCOMPARE(m_manager->currentControlId(), right);
    QCOMPARE(m_manager->secondaryIds(), QStringList { left });
    verifyOnServer(m_main, rightMonitor);
    verifyOnServer(m_manager->secondary(left), leftMonitor);
    verifyOnServer(m_manager->hudWindow(), rightMonitor);
    QTRY_COMPARE(m_user.mappedWindowsOf(QCoreApplication::applicationPid()).size(), 3);

    m_displays->setControlDisplay(left);
    QCOMPARE(m_manager->secondaryIds(), QStringList { right });
    verifyOnServer(m_main, leftMonitor);
    verifyOnServer(m_manager->secondary(right), rightMonitor);
}

void tst_X11OverlayWindows::pauseHidesOnlySecondaries()
{
    QQuickWindow *secondary = m_manager->secondary(idOf("RIGHT"));
    QVERIFY(secondary);
    const auto secondaryNative = static_cast<uint32_t>(secondary->winId());
    const auto mainNative = static_cast<uint32_t>(m_main->winId());
    m_controller->setOverlayEnabled(false);
    QTRY_VERIFY(
        !m_user.mappedWindowsOf(QCoreApplication::applicationPid()).contains(secondaryNative));
    QVERIFY(m_user.mappedWindowsOf(QCoreApplication::applicationPid()).contains(mainNative));
    QCOMPARE(m_manager->secondary(idOf("RIGHT")), secondary);

    m_controller->setOverlayEnabled(true);
    verifyOnServer(secondary, rightMonitor);
}

void tst_X11OverlayWindows::toolDecidesWhereClicksGo_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<bool>("reachesClient");
    QTest::newRow("cursor lets clicks through") << "cursor" << true;
    QTest::newRow("pen takes them") << "pen" << false;
    QTest::newRow("spotlight lets them through") << "spotlight" << true;
}

void tst_X11OverlayWindows::toolDecidesWhereClicksGo()
{
    QFETCH(QString, tool);
    QFETCH(bool, reachesClient);
    m_controller->setTool(tool);
    QCOMPARE(m_controller->currentTool(), tool);
    // The server keeps the pointer on its one output, LEFT; with the control
    // display on RIGHT a secondary overlay lies there instead of the main window.
    for (const char *control : { "LEFT", "RIGHT" }) {
        m_displays->setControlDisplay(idOf(control));
        QQuickWindow *window = windowOn(idOf("LEFT"));
        verifyOnServer(window, leftMonitor);
        PressCounter counter;
        window->installEventFilter(&counter);
        syncQt();
        const QPoint target = leftMonitor.center();
        const int clientBefore = m_client.pressCount();
        m_user.click(target);
        if (reachesClient) {
            QTRY_COMPARE(m_client.pressCount(), clientBefore + 1);
            QCOMPARE(m_client.lastPress(), target);
            QCOMPARE(counter.presses, 0);
        } else {
            QTRY_COMPARE(counter.presses, 1);
            QCOMPARE(m_client.pressCount(), clientBefore);
        }
        window->removeEventFilter(&counter);
    }
    QCOMPARE(m_user.inputFocus(), m_client.window());
    QCOMPARE(m_client.focusLosses(), 0);
}

void tst_X11OverlayWindows::hideAllUnmapsEverything()
{
    m_manager->hideAll();
    QTRY_VERIFY(m_user.mappedWindowsOf(QCoreApplication::applicationPid()).isEmpty());
    QCOMPARE(m_manager->secondaryIds(), QStringList { idOf("RIGHT") });
}

int main(int argc, char *argv[])
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.filePath("config").toLocal8Bit());
    qputenv("XDG_DATA_HOME", home.filePath("data").toLocal8Bit());
    qputenv("QSG_RENDER_LOOP", "basic");
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    tst_X11OverlayWindows test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_x11overlaywindows.moc"
