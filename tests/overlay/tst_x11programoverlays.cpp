// The real program on the test server: its overlay windows cover the
// monitors, the pen key makes them take the user's clicks and draw, and in the
// cursor tool the clicks reach the application below, which keeps the focus.
// Then the tools as a presenter meets them over that application: its keys,
// the lens, the ripple, the eraser and the quit dialog.
#include "AssembledApp.h"
#include "ProbeClient.h"
#include "ProgramHome.h"
#include "XTestSession.h"
#include "app/ThemeFonts.h"
#include "settings/SettingsManager.h"

#include <QApplication>
#include <QColor>
#include <QFile>
#include <QQuickItem>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace {

const QRect leftMonitor(0, 0, 1920, 1080);
const QRect rightMonitor(1920, 0, 1920, 1080);
constexpr QRgb clientColour = 0x204060;

void xdotool(const QStringList &arguments)
{
    QProcess::execute(QStringLiteral("xdotool"), arguments);
}

bool near(QRgb pixel, QRgb colour, int tolerance)
{
    return std::abs(qRed(pixel) - qRed(colour)) < tolerance
        && std::abs(qGreen(pixel) - qGreen(colour)) < tolerance
        && std::abs(qBlue(pixel) - qBlue(colour)) < tolerance;
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
    void pressRightAfterLeavingTheToolbarDraws();
    void eraserKeyErasesPartOfAStroke();
    void shortClickInTheSpotlightRipples();
    void escClosesTheLensBeforeItLeavesTheTool();
    void quitDialogTakesEscAndReturn();

private:
    // Geometries of the program's override-redirect windows, left to right.
    QList<QRect> overlayGeometries();
    uint32_t windowAt(const QRect &geometry);
    // Keys as the presenter types them, into the application that has the focus.
    static void type(const char *keys) { xdotool({ "key", keys }); }
    // Pixels of the pen colour #F4C24A on the row y from x0 to x1.
    int penPixels(int y, int x0, int x1);
    // A drag from `from` to `to` in steps the pointer poll sees.
    void drag(QPoint from, QPoint to);
    bool takesClicks();

    QPoint m_magnifierButton;
    ProgramHome m_home;
    XTestSession m_user;
    ProbeClient m_client;
    QProcess m_program;
};

void tst_X11ProgramOverlays::initTestCase()
{
    QVERIFY(m_user.isValid());
    QVERIFY(m_home.isValid());
    {
        // The toolbar's layout, measured on the same documents assembled in
        // this process, with the fonts and settings the program starts with.
        ThemeFonts::addBundledFonts();
        ThemeFonts::installFamilyLists();
        AssembledApp copy;
        QVERIFY(copy.isValid());
        copy.settings().setFirstRunDone(true);
        const QQuickItem *button = nullptr;
        QTRY_VERIFY((button = copy.hudItem(QStringLiteral("magnifierButton")))
                    && button->isVisible() && button->width() > 0);
        m_magnifierButton =
            button->mapToGlobal(QPointF(button->width() / 2, button->height() / 2)).toPoint();
    }
    QVERIFY(m_client.start(leftMonitor));
    QTRY_COMPARE(m_user.inputFocus(), m_client.window());
    // Quitting asks first, as it does for a presenter.
    QVERIFY(m_home.start(m_program, "[gen%65ral]\nconfirmQuit=true\n"));
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

int tst_X11ProgramOverlays::penPixels(int y, int x0, int x1)
{
    const QImage row = m_user.rootImage(QRect(x0, y, x1 - x0 + 1, 1));
    int count = 0;
    for (int x = 0; x < row.width(); ++x)
        count += near(row.pixel(x, 0), 0xF4C24A, 24);
    return count;
}

void tst_X11ProgramOverlays::drag(QPoint from, QPoint to)
{
    m_user.moveTo(from);
    QTest::qWait(100);
    m_user.press(1);
    QTest::qWait(50);
    for (int step = 1; step <= 20; ++step) {
        m_user.moveTo(from + (to - from) * step / 20);
        QTest::qWait(20);
    }
    m_user.release(1);
}

bool tst_X11ProgramOverlays::takesClicks()
{
    return m_user.inputRectangleCount(windowAt(leftMonitor)) > 0;
}

void tst_X11ProgramOverlays::pressRightAfterLeavingTheToolbarDraws()
{
    type("alt+3");
    QTRY_VERIFY(takesClicks());
    const int y = 500;
    QCOMPARE(penPixels(y, 300, 700), 0);
    // Over the toolbar the controls take the mouse; the press follows the
    // move off it at once, before any poll of the pointer.
    m_user.moveTo(QPoint(960, 58));
    QTest::qWait(300);
    m_user.moveTo(QPoint(300, y));
    m_user.press(1);
    for (int x = 320; x <= 700; x += 20)
        m_user.moveTo(QPoint(x, y));
    m_user.release(1);
    QTRY_VERIFY2(penPixels(y, 300, 700) > 350,
                 qPrintable(QStringLiteral("%1 pen pixels").arg(penPixels(y, 300, 700))));
    type("ctrl+shift+k");
    QTRY_COMPARE(penPixels(y, 300, 700), 0);
}

void tst_X11ProgramOverlays::eraserKeyErasesPartOfAStroke()
{
    type("alt+3");
    QTRY_VERIFY(takesClicks());
    const int y = 600;
    drag(QPoint(300, y), QPoint(700, y));
    QTRY_VERIFY(penPixels(y, 300, 700) > 350);

    // The eraser has no button: its key, then a drag across the stroke.
    type("alt+8");
    drag(QPoint(500, y - 60), QPoint(500, y + 60));
    // The eraser is as wide as the pen: 5 pixels.
    QTRY_VERIFY2(
        penPixels(y, 498, 502) == 0,
        qPrintable(QStringLiteral("%1 pen pixels under the eraser").arg(penPixels(y, 498, 502))));
    QVERIFY(penPixels(y, 300, 480) > 150);
    QVERIFY(penPixels(y, 520, 700) > 150);
    type("ctrl+shift+k");
    QTRY_COMPARE(penPixels(y, 300, 700), 0);
}

void tst_X11ProgramOverlays::shortClickInTheSpotlightRipples()
{
    type("alt+2");
    QTRY_VERIFY(!takesClicks());
    const QPoint at(700, 450);
    m_user.moveTo(at);
    QTest::qWait(200);
    const int before = m_client.pressCount();
    // Press and release in one go, between two polls of the pointer.
    m_user.press(1);
    m_user.release(1);
    QTRY_COMPARE(m_client.pressCount(), before + 1);
    // The dot in the left-click colour, orange, at the point.
    QTRY_VERIFY_WITH_TIMEOUT(qRed(m_user.rootPixel(at)) - qBlue(m_user.rootPixel(at)) > 60, 400);
    type("alt+1");
    QTRY_VERIFY(!takesClicks());
}

void tst_X11ProgramOverlays::escClosesTheLensBeforeItLeavesTheTool()
{
    m_user.moveTo(m_magnifierButton);
    QTest::qWait(300);
    m_user.press(1);
    m_user.release(1);
    type("alt+3");
    QTRY_VERIFY(takesClicks());

    // The lens over the application: its rim and label show against the
    // application's even colour.
    const QPoint pointer(960, 500);
    m_user.moveTo(pointer);
    const auto lensShown = [&] {
        const QImage around = m_user.rootImage(QRect(pointer - QPoint(150, 150), QSize(300, 300)));
        int differing = 0;
        for (int y = 0; y < around.height(); ++y) {
            for (int x = 0; x < around.width(); ++x)
                differing += !near(around.pixel(x, y), clientColour, 8);
        }
        return differing > 500;
    };
    QTRY_VERIFY_WITH_TIMEOUT(lensShown(), 5000);

    // The first Esc closes the lens and leaves the pen.
    type("Escape");
    QTRY_VERIFY(!lensShown());
    QTest::qWait(300);
    QVERIFY(takesClicks());
    QVERIFY(!lensShown());
    // Only the second goes to the cursor tool.
    type("Escape");
    QTRY_VERIFY(!takesClicks());
    QCOMPARE(m_user.inputFocus(), m_client.window());
}

void tst_X11ProgramOverlays::quitDialogTakesEscAndReturn()
{
    type("alt+3");
    QTRY_VERIFY(takesClicks());
    const QPoint behind(300, 300);
    QVERIFY(near(m_user.rootPixel(behind), clientColour, 4));
    const auto dimmed = [&] {
        return !near(m_user.rootPixel(behind), clientColour, 4);
    };

    // Esc cancels the dialog and does nothing else: the pen stays.
    type("ctrl+shift+q");
    QTRY_VERIFY_WITH_TIMEOUT(dimmed(), 5000);
    type("Escape");
    QTRY_VERIFY(!dimmed());
    QTest::qWait(300);
    QVERIFY(takesClicks());
    QCOMPARE(m_program.state(), QProcess::Running);
    // The application in front has its keys back.
    QTRY_COMPARE(m_user.inputFocus(), m_client.window());

    // Return confirms.
    type("ctrl+shift+q");
    QTRY_VERIFY_WITH_TIMEOUT(dimmed(), 5000);
    type("Return");
    QVERIFY(m_program.waitForFinished(10000));
    QCOMPARE(m_program.exitCode(), 0);
}

int main(int argc, char *argv[])
{
    // The assembled copy keeps its settings in a scratch home.
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("data"))));
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    tst_X11ProgramOverlays test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_x11programoverlays.moc"
