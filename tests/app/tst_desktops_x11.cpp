// The real program on Debian's window managers, started before or after the
// window manager, over a plain X client that stands in for the presenter's
// application: its windows cover both monitors above every window the
// manager stacks, draw, darken and let clicks through, and keep their place
// when windows are mapped or raised, below another program's
// override-redirect window that comes later.
#include "ProbeClient.h"
#include "ProgramHome.h"
#include "TestDesktop.h"
#include "XTestSession.h"

#include <QColor>
#include <QElapsedTimer>
#include <QTest>

#include <algorithm>

namespace {

const QRect leftMonitor(0, 0, 1920, 1080);
const QRect rightMonitor(1920, 0, 1920, 1080);
// Where the presenter's application asks to be; i3 tiles it regardless.
const QRect applicationArea(100, 100, 1600, 800);

void xdotool(const QStringList &arguments)
{
    QProcess::execute(QStringLiteral("xdotool"), arguments);
}

int brightness(QRgb pixel)
{
    return qRed(pixel) + qGreen(pixel) + qBlue(pixel);
}

} // namespace

class tst_DesktopsX11 : public QObject
{
    Q_OBJECT

private slots:
    void presenterDesktop_data();
    void presenterDesktop();
    void withoutCompositingManager();

private:
    QList<uint32_t> programWindows();
    QList<QRect> programGeometries();
    // Every window of the program stands above `below` and under `above`;
    // 0 leaves that side open.
    bool programBetween(uint32_t below, uint32_t above = 0);
    // The top-level windows bottom to top, for a failure message: P the
    // program's, and the letters given for the windows named.
    QByteArray stackText(const QMap<uint32_t, char> &names);
    uint32_t programWindowAt(const QRect &geometry);
    bool programPassesClicks(QPoint global);
    int penPixels(int y);
    void drag(int y);
    void bringForward(TestDesktop &desktop, const ProbeClient &client);
    // Starts the program in `home` and returns a guard that quits it.
    auto startProgram(ProgramHome &home, QProcess &program)
    {
        m_program = &program;
        if (!home.isValid() || !home.start(program))
            QTest::qFail("the program did not start", __FILE__, __LINE__);
        return qScopeGuard([this, &program] {
            ProgramHome::pressQuitShortcut(program);
            if (!program.waitForFinished(5000)) {
                program.kill();
                program.waitForFinished(5000);
            }
            m_program = nullptr;
        });
    }

    std::unique_ptr<XTestSession> m_user;
    QProcess *m_program = nullptr;
};

void tst_DesktopsX11::presenterDesktop_data()
{
    QTest::addColumn<TestDesktop::Manager>("manager");
    QTest::addColumn<bool>("programFirst");
    // A client raising itself without a window manager goes above
    // everything; window managers keep a raised window under
    // override-redirect windows, and i3 tiles and raises nothing.
    QTest::addColumn<bool>("raisesOverMenus");
    for (TestDesktop::Manager manager :
         { TestDesktop::Manager::None, TestDesktop::Manager::Openbox, TestDesktop::Manager::I3,
           TestDesktop::Manager::Xfwm4, TestDesktop::Manager::Mutter }) {
        for (bool programFirst : { false, true }) {
            if (manager == TestDesktop::Manager::None && !programFirst)
                continue;
            const QString name = TestDesktop::name(manager)
                + (programFirst ? QStringLiteral(", program first")
                                : QStringLiteral(", window manager first"));
            QTest::newRow(qPrintable(name))
                << manager << programFirst << (manager == TestDesktop::Manager::None);
        }
    }
}

void tst_DesktopsX11::presenterDesktop()
{
    QFETCH(TestDesktop::Manager, manager);
    QFETCH(bool, programFirst);
    QFETCH(bool, raisesOverMenus);
    QElapsedTimer clock;
    clock.start();

    TestDesktop desktop(manager);
    QVERIFY(desktop.startServer());
    m_user = std::make_unique<XTestSession>();
    QVERIFY(m_user->isValid());
    // The presenter works on the left monitor, where i3 then puts windows.
    m_user->moveTo(leftMonitor.center());
    if (!programFirst)
        QVERIFY(desktop.startWindowManager());
    ProbeClient application;
    QVERIFY(application.start(applicationArea));
    ProgramHome home;
    QProcess program;
    const auto quit = startProgram(home, program);
    QTRY_VERIFY2_WITH_TIMEOUT(home.logLinesWith(QStringLiteral("Glimmora started.")) == 1,
                              qPrintable(home.log()), 30000);
    if (programFirst)
        QVERIFY(desktop.startWindowManager());

    // Mapped over both monitors, above the application.
    QTRY_VERIFY2_WITH_TIMEOUT(
        programGeometries() == (QList<QRect> { leftMonitor, rightMonitor }),
        qPrintable(QDebug::toString(programGeometries()) + u'\n' + home.log()), 30000);
    QTRY_VERIFY(programBetween(m_user->topLevelOf(application.window())));
    // Found anew each time: a compositing manager that starts later gets
    // new native windows.
    const auto right = [&] {
        return programWindowAt(rightMonitor);
    };

    // The pen draws over the application and takes its clicks.
    bringForward(desktop, application);
    xdotool({ "key", "alt+3" });
    QTRY_VERIFY(m_user->inputRectangleCount(right()) > 0);
    QTest::qWait(300);
    const int presses = application.pressCount();
    QCOMPARE(penPixels(450), 0);
    drag(450);
    QTRY_VERIFY2(penPixels(450) > 380, qPrintable(QString::number(penPixels(450))));
    QCOMPARE(application.pressCount(), presses);
    xdotool({ "key", "ctrl+shift+k" });
    QTRY_VERIFY2(penPixels(450) == 0, qPrintable(home.log().right(2000)));

    // A window mapped while the pen is on ends below the overlays, and
    // another program's menu mapped later stays above them, also when the
    // application is raised again; once the menu goes they are back on top.
    ProbeClient newWindow;
    QVERIFY(newWindow.start(QRect(300, 300, 800, 400)));
    QTRY_VERIFY(programBetween(m_user->topLevelOf(newWindow.window())));
    auto menu = std::make_unique<ProbeClient>();
    QVERIFY(menu->start(QRect(1400, 200, 300, 200), true));
    const auto names = [&] {
        return QMap<uint32_t, char> { { m_user->topLevelOf(application.window()), 'A' },
                                      { m_user->topLevelOf(newWindow.window()), 'N' },
                                      { menu->window(), 'M' } };
    };
    QTRY_VERIFY2(programBetween(m_user->topLevelOf(newWindow.window()), menu->window()),
                 stackText(names()).constData());
    bringForward(desktop, application);
    const uint32_t raised = m_user->topLevelOf(application.window());
    if (raisesOverMenus)
        QTRY_VERIFY2(programBetween(0, menu->window()) && programBetween(0, raised),
                     stackText(names()).constData());
    else
        QTRY_VERIFY2(programBetween(raised, menu->window()), stackText(names()).constData());
    menu.reset();
    QTRY_VERIFY(programBetween(raised));

    // The spotlight darkens the application and the right monitor; its
    // bright disc follows the pointer, away from the points looked at.
    const QRect shown = m_user->geometry(application.window());
    const QRect newShown = m_user->geometry(newWindow.window());
    QPoint onApplication;
    for (int y = 320; y <= 820 && onApplication.isNull(); y += 50) {
        for (int x = 220; x <= 1800 && onApplication.isNull(); x += 50) {
            const QPoint p(x, y);
            if (shown.contains(p) && !newShown.adjusted(-20, -20, 20, 20).contains(p)
                && QRect(700, 0, 1300, 1080).contains(p))
                onApplication = p;
        }
    }
    QVERIFY2(!onApplication.isNull(),
             qPrintable(QStringLiteral("no free point on the application at %1, beside %2")
                            .arg(QDebug::toString(shown), QDebug::toString(newShown))));
    const QPoint onRight(2880, 700);
    m_user->moveTo(QPoint(300, 1000));
    const int applicationBefore = brightness(m_user->rootPixel(onApplication));
    const int rightBefore = brightness(m_user->rootPixel(onRight));
    xdotool({ "key", "alt+2" });
    const auto darkened = [&](QPoint p, int before) {
        const int now = brightness(m_user->rootPixel(p));
        return now <= before * 7 / 10 && before - now >= 12;
    };
    QTRY_VERIFY(darkened(onApplication, applicationBefore));
    if (desktop.composesRightMonitor())
        QTRY_VERIFY(darkened(onRight, rightBefore));

    // In the cursor tool a click reaches the application, which keeps the
    // keyboard focus.
    xdotool({ "key", "alt+1" });
    QTRY_COMPARE(m_user->inputRectangleCount(right()), 0);
    bringForward(desktop, application);
    const int losses = application.focusLosses();
    const int before = application.pressCount();
    // The controls window takes the mouse while the pointer is over a
    // control; the poll lets go once it has seen the pointer leave.
    m_user->moveTo(onApplication);
    QTRY_VERIFY(programPassesClicks(onApplication));
    m_user->click(onApplication);
    QTRY_COMPARE(application.pressCount(), before + 1);
    QCOMPARE(application.lastPress(), onApplication);
    QCOMPARE(m_user->inputFocus(), application.window());
    QCOMPARE(application.focusLosses(), losses);

    // A window manager replaced while the program runs leaves it working.
    if (manager == TestDesktop::Manager::Openbox) {
        QVERIFY(desktop.replaceWindowManager());
        ProbeClient later;
        QVERIFY(later.start(QRect(500, 500, 600, 300)));
        QTRY_VERIFY(programBetween(m_user->topLevelOf(later.window())));
    }
    qInfo().noquote() << QTest::currentDataTag() << "took" << clock.elapsed() << "ms";
}

void tst_DesktopsX11::withoutCompositingManager()
{
    TestDesktop desktop(TestDesktop::Manager::None);
    QVERIFY(desktop.startServer(false));
    m_user = std::make_unique<XTestSession>();
    QVERIFY(m_user->isValid());
    ProbeClient application;
    QVERIFY(application.start(applicationArea));
    ProgramHome home;
    QProcess program;
    const auto quit = startProgram(home, program);
    QTRY_VERIFY_WITH_TIMEOUT(home.logLinesWith(QStringLiteral("Glimmora started.")) == 1, 30000);
    QCOMPARE(home.logLinesWith(QStringLiteral("XcbCompositorWatch: no compositing manager runs")),
             1);

    // The overlays are up, yet the application and the background show as
    // they are, not black; the toolbar shows over them; clicks reach the
    // application.
    QTRY_COMPARE_WITH_TIMEOUT(programGeometries(), (QList<QRect> { leftMonitor, rightMonitor }),
                              15000);
    const QPoint onApplication(1500, 600);
    const QPoint onRight(2880, 700);
    const QPoint onToolbar(960, 40);
    m_user->moveTo(QPoint(1200, 500));
    QTRY_COMPARE(m_user->rootPixel(onApplication), 0x204060u);
    QTRY_COMPARE(m_user->rootPixel(onRight), 0x808080u);
    QTRY_VERIFY(m_user->rootPixel(onToolbar) != 0x204060u && m_user->rootPixel(onToolbar) != 0);
    const int before = application.pressCount();
    m_user->click(onApplication);
    QTRY_COMPARE(application.pressCount(), before + 1);

    // A compositing manager started later makes the transparent windows
    // right: the spotlight darkens both monitors.
    QVERIFY(desktop.startCompositor());
    QTRY_COMPARE(home.logLinesWith(QStringLiteral("a compositing manager started")), 1);
    xdotool({ "key", "alt+2" });
    m_user->moveTo(QPoint(300, 1000));
    QTRY_VERIFY(brightness(m_user->rootPixel(onApplication)) < brightness(0x204060) * 7 / 10);
    QTRY_VERIFY(brightness(m_user->rootPixel(onRight)) < brightness(0x808080) * 7 / 10);
}

QList<uint32_t> tst_DesktopsX11::programWindows()
{
    QList<uint32_t> windows = m_user->mappedWindowsOf(m_program->processId());
    windows.removeIf([&](uint32_t window) { return !m_user->isOverrideRedirect(window); });
    return windows;
}

QList<QRect> tst_DesktopsX11::programGeometries()
{
    QList<QRect> geometries;
    for (uint32_t window : programWindows())
        geometries.append(m_user->geometry(window));
    std::sort(geometries.begin(), geometries.end(),
              [](const QRect &a, const QRect &b) { return a.x() < b.x(); });
    // The controls window covers the control display exactly as its overlay does.
    geometries.erase(std::unique(geometries.begin(), geometries.end()), geometries.end());
    return geometries;
}

bool tst_DesktopsX11::programBetween(uint32_t below, uint32_t above)
{
    const QList<uint32_t> order = m_user->stackingOrder();
    const QList<uint32_t> windows = programWindows();
    if (windows.isEmpty())
        return false;
    const qsizetype lowest = below ? order.indexOf(below) : -1;
    const qsizetype highest = above ? order.indexOf(above) : order.size();
    return (lowest >= 0 || !below) && highest >= 0
        && std::all_of(windows.cbegin(), windows.cend(), [&](uint32_t w) {
               const qsizetype at = order.indexOf(w);
               return at > lowest && at < highest;
           });
}

QByteArray tst_DesktopsX11::stackText(const QMap<uint32_t, char> &names)
{
    const QList<uint32_t> program = programWindows();
    QByteArray text;
    for (uint32_t window : m_user->stackingOrder()) {
        if (program.contains(window))
            text += 'P';
        else if (names.contains(window))
            text += names.value(window);
    }
    return text;
}

uint32_t tst_DesktopsX11::programWindowAt(const QRect &geometry)
{
    for (uint32_t window : programWindows()) {
        if (m_user->geometry(window) == geometry)
            return window;
    }
    return 0;
}

bool tst_DesktopsX11::programPassesClicks(QPoint global)
{
    const QList<uint32_t> windows = programWindows();
    return std::none_of(windows.cbegin(), windows.cend(),
                        [&](uint32_t window) { return m_user->takesInputAt(window, global); });
}

int tst_DesktopsX11::penPixels(int y)
{
    // The starting pen colour #F4C24A along the drag.
    int count = 0;
    for (int x = 250; x <= 650; ++x) {
        const QRgb pixel = m_user->rootPixel(QPoint(x, y));
        count += std::abs(qRed(pixel) - 0xF4) < 24 && std::abs(qGreen(pixel) - 0xC2) < 24
            && std::abs(qBlue(pixel) - 0x4A) < 24;
    }
    return count;
}

void tst_DesktopsX11::drag(int y)
{
    // The 16 ms pointer poll must see each step, as it would a person's hand.
    m_user->moveTo(QPoint(200, y));
    QTest::qWait(100);
    m_user->press(1);
    QTest::qWait(50);
    for (int x = 220; x <= 700; x += 20) {
        m_user->moveTo(QPoint(x, y));
        QTest::qWait(20);
    }
    m_user->release(1);
}

void tst_DesktopsX11::bringForward(TestDesktop &desktop, const ProbeClient &client)
{
    desktop.activate(client.window());
    QTRY_COMPARE(m_user->inputFocus(), client.window());
}

QTEST_GUILESS_MAIN(tst_DesktopsX11)
#include "tst_desktops_x11.moc"
