// The real program on the test server: its overlay windows cover the
// monitors, the pen key makes them take the user's clicks and draw, and in the
// cursor tool the clicks reach the application below, which keeps the focus.
#include "ProbeClient.h"
#include "ProgramHome.h"
#include "XTestSession.h"

#include <QColor>
#include <QTest>

#include <algorithm>

namespace {

const QRect leftMonitor(0, 0, 1920, 1080);
const QRect rightMonitor(1920, 0, 1920, 1080);

void xdotool(const QStringList &arguments)
{
    QProcess::execute(QStringLiteral("xdotool"), arguments);
}

} // namespace

class tst_X11ProgramOverlays : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void overlaysCoverTheMonitors();
    void penKeyDrawsAndTakesTheClicks();

private:
    // Geometries of the program's override-redirect windows, left to right.
    QList<QRect> overlayGeometries();
    uint32_t windowAt(const QRect &geometry);

    ProgramHome m_home;
    XTestSession m_user;
    ProbeClient m_client;
    QProcess m_program;
};

void tst_X11ProgramOverlays::initTestCase()
{
    QVERIFY(m_user.isValid());
    QVERIFY(m_home.isValid());
    QVERIFY(m_client.start(leftMonitor));
    QTRY_COMPARE(m_user.inputFocus(), m_client.window());
    QVERIFY(m_home.start(m_program));
    QTRY_VERIFY2_WITH_TIMEOUT(m_home.logLinesWith(QStringLiteral("Glimmora started.")) == 1,
                              qPrintable(QStringLiteral("no start in the log:\n") + m_home.log()),
                              30000);
}

void tst_X11ProgramOverlays::cleanupTestCase()
{
    if (m_program.state() == QProcess::NotRunning)
        return;
    ProgramHome::pressQuitShortcut(m_program);
    if (!m_program.waitForFinished(10000)) {
        m_program.terminate();
        if (!m_program.waitForFinished(5000))
            m_program.kill();
    }
}

QList<QRect> tst_X11ProgramOverlays::overlayGeometries()
{
    QList<QRect> geometries;
    const QList<uint32_t> windows = m_user.mappedWindowsOf(m_program.processId());
    for (uint32_t window : windows) {
        if (m_user.isOverrideRedirect(window))
            geometries.append(m_user.geometry(window));
    }
    std::sort(geometries.begin(), geometries.end(),
              [](const QRect &a, const QRect &b) { return a.x() < b.x(); });
    // The controls window covers the control display exactly as its overlay does.
    geometries.erase(std::unique(geometries.begin(), geometries.end()), geometries.end());
    return geometries;
}

uint32_t tst_X11ProgramOverlays::windowAt(const QRect &geometry)
{
    const QList<uint32_t> windows = m_user.mappedWindowsOf(m_program.processId());
    for (uint32_t window : windows) {
        if (m_user.isOverrideRedirect(window) && m_user.geometry(window) == geometry)
            return window;
    }
    return 0;
}

void tst_X11ProgramOverlays::overlaysCoverTheMonitors()
{
    QTRY_COMPARE_WITH_TIMEOUT(overlayGeometries(), (QList<QRect> { leftMonitor, rightMonitor }),
                              15000);
}

void tst_X11ProgramOverlays::penKeyDrawsAndTakesTheClicks()
{
    const uint32_t overlay = windowAt(leftMonitor);
    QVERIFY(overlay);
    QCOMPARE(m_user.inputRectangleCount(overlay), 0);
    // The keys go to a window of the program, where its window shortcuts also
    // see them; the focus goes back to the client after.
    const auto key = [&](const char *keys) {
        xdotool({ "windowfocus", "--sync", QString::number(overlay) });
        xdotool({ "key", keys });
    };
    const auto focusClient = [&] {
        xdotool({ "windowfocus", "--sync", QString::number(m_client.window()) });
    };
    key("alt+3");
    QTRY_VERIFY(m_user.inputRectangleCount(overlay) > 0);
    focusClient();
    // Settle after the tool change and the focus moves: a drag begun at once
    // drew nothing in about one run in three, which is not yet explained.
    QTest::qWait(500);
    const int before = m_client.pressCount();

    // A drag at mid-height, away from the toolbar and the cards, in the
    // starting pen colour #F4C24A.
    const int y = 450;
    const auto penPixels = [&] {
        int count = 0;
        for (int x = 250; x <= 650; ++x) {
            const QRgb pixel = m_user.rootPixel(QPoint(x, y));
            count += std::abs(qRed(pixel) - 0xF4) < 24 && std::abs(qGreen(pixel) - 0xC2) < 24
                && std::abs(qBlue(pixel) - 0x4A) < 24;
        }
        return count;
    };
    QCOMPARE(penPixels(), 0);
    // The 16 ms pointer poll must see each step, as it would a person's hand.
    m_user.moveTo(QPoint(200, y));
    QTest::qWait(100);
    m_user.press(1);
    QTest::qWait(50);
    for (int x = 220; x <= 700; x += 20) {
        m_user.moveTo(QPoint(x, y));
        QTest::qWait(20);
    }
    m_user.release(1);
    QTRY_VERIFY2(penPixels() > 380, qPrintable(QStringLiteral("%1 pen pixels").arg(penPixels())));
    QCOMPARE(m_client.pressCount(), before);

    key("ctrl+shift+k");
    QTRY_COMPARE(penPixels(), 0);
    key("alt+1");
    QTRY_COMPARE(m_user.inputRectangleCount(overlay), 0);
    focusClient();
    // Back in the cursor tool every click reaches the client, away from the
    // controls in the corners too, and the client keeps the focus.
    for (const QPoint target : { leftMonitor.center(), QPoint(40, 400), QPoint(1900, 1060) }) {
        const int count = m_client.pressCount();
        m_user.click(target);
        QTRY_COMPARE(m_client.pressCount(), count + 1);
        QCOMPARE(m_client.lastPress(), target);
    }
    QCOMPARE(m_user.inputFocus(), m_client.window());
}

QTEST_GUILESS_MAIN(tst_X11ProgramOverlays)
#include "tst_x11programoverlays.moc"
