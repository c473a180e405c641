// The real program on the test server: its overlay windows cover the
// monitors, follow an unplugged monitor live and let the user's clicks reach
// the application below, which keeps the focus.
#include "ProbeClient.h"
#include "XTestSession.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace {

const QRect leftMonitor(0, 0, 1920, 1080);
const QRect rightMonitor(1920, 0, 1920, 1080);

void xdotool(const QStringList &arguments)
{
    QProcess::execute(QStringLiteral("xdotool"), arguments);
}

bool xrandr(const QStringList &arguments)
{
    return QProcess::execute(QStringLiteral("xrandr"), arguments) == 0;
}

QStringList monitorNames()
{
    QProcess process;
    process.start(QStringLiteral("xrandr"), { QStringLiteral("--listmonitors") });
    process.waitForFinished(10000);
    QStringList names;
    const QList<QByteArray> lines = process.readAllStandardOutput().split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (words.size() > 2 && words.constFirst().endsWith(':')
            && words.constFirst() != "Monitors:")
            names.append(QString::fromLatin1(words.at(1)).remove(u'+').remove(u'*'));
    }
    return names;
}

} // namespace

class tst_X11ProgramOverlays : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void overlaysCoverTheMonitors();
    void clicksReachTheApplication();
    void penKeyDrawsAndTakesTheClicks();

private:
    // Geometries of the program's override-redirect windows, left to right.
    QList<QRect> overlayGeometries();
    QString log() const;
    uint32_t windowAt(const QRect &geometry);

    QTemporaryDir m_home;
    XTestSession m_user;
    ProbeClient m_client;
    QProcess m_program;
};

void tst_X11ProgramOverlays::initTestCase()
{
    QVERIFY(m_user.isValid());
    QCOMPARE(monitorNames(), (QStringList { "LEFT", "RIGHT" }));
    QVERIFY(m_client.start(leftMonitor));
    QTRY_COMPARE(m_user.inputFocus(), m_client.window());

    // Past the first start, and the quit shortcut quits at once, without a
    // dialog. "%65" spells the lower-case group that QSettings would write as
    // "[%General]".
    QVERIFY(QDir(m_home.path()).mkpath(QStringLiteral("config/Orvelline")));
    QFile config(m_home.filePath("config/Orvelline/Glimmora.conf"));
    QVERIFY(config.open(QIODevice::WriteOnly));
    config.write("[gen%65ral]\nconfirmQuit=false\nfirstRunDone=true\n");
    config.close();

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), m_home.filePath("data"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home.filePath("config"));
    environment.insert(QStringLiteral("QSG_RENDER_LOOP"), QStringLiteral("basic"));
    // The single-instance lock lives in the temporary directory: keep ours apart.
    QVERIFY(QDir(m_home.path()).mkpath(QStringLiteral("tmp")));
    environment.insert(QStringLiteral("TMPDIR"), m_home.filePath("tmp"));
    m_program.setProcessEnvironment(environment);
    m_program.setProcessChannelMode(QProcess::ForwardedChannels);
    m_program.start(QStringLiteral(GLIMMORA_BINARY), {});
    QVERIFY(m_program.waitForStarted(10000));
    QTRY_VERIFY2_WITH_TIMEOUT(log().contains(QLatin1String("Glimmora started.")),
                              qPrintable(QStringLiteral("no start in the log:\n") + log()), 30000);
}

void tst_X11ProgramOverlays::cleanupTestCase()
{
    if (m_program.state() == QProcess::NotRunning)
        return;
    // Quit as a presenter does, so the program releases its single-instance
    // lock; a killed one would leave it behind.
    if (const uint32_t overlay = windowAt(leftMonitor)) {
        xdotool({ "windowfocus", "--sync", QString::number(overlay) });
        xdotool({ "key", "ctrl+shift+q" });
    }
    if (!m_program.waitForFinished(10000)) {
        m_program.terminate();
        if (!m_program.waitForFinished(5000))
            m_program.kill();
    }
}

void tst_X11ProgramOverlays::cleanup()
{
    // Whatever failed, the next test and the next program find both monitors.
    if (!monitorNames().contains(QLatin1String("RIGHT")))
        QVERIFY(xrandr({ "--setmonitor", "RIGHT", "1920/508x1080/286+1920+0", "none" }));
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

QString tst_X11ProgramOverlays::log() const
{
    QFile file(m_home.filePath("data/Orvelline/Glimmora/glimmora.log"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll());
}

void tst_X11ProgramOverlays::overlaysCoverTheMonitors()
{
    QTRY_COMPARE_WITH_TIMEOUT(overlayGeometries(), (QList<QRect> { leftMonitor, rightMonitor }),
                              15000);
}

void tst_X11ProgramOverlays::clicksReachTheApplication()
{
    // The program starts in the cursor tool: its overlays let every click through.
    // Away from the controls in the corners: the mode badge sits top left.
    for (const QPoint target : { leftMonitor.center(), QPoint(40, 400), QPoint(1900, 1060) }) {
        const int before = m_client.pressCount();
        m_user.click(target);
        QTRY_COMPARE(m_client.pressCount(), before + 1);
        QCOMPARE(m_client.lastPress(), target);
    }
    QCOMPARE(m_user.inputFocus(), m_client.window());
    QCOMPARE(m_client.focusLosses(), 0);
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
    m_user.moveTo(QPoint(200, y));
    m_user.press(1);
    for (int x = 220; x <= 700; x += 20) {
        m_user.moveTo(QPoint(x, y));
        QTest::qWait(20);
    }
    m_user.release(1);
    QTRY_VERIFY2(penPixels() > 380, "the stroke shows on the left monitor");
    QCOMPARE(m_client.pressCount(), before);

    key("ctrl+shift+k");
    QTRY_COMPARE(penPixels(), 0);
    key("alt+1");
    QTRY_COMPARE(m_user.inputRectangleCount(overlay), 0);
    focusClient();
    m_user.click(leftMonitor.center());
    QTRY_COMPARE(m_client.pressCount(), before + 1);
}

QTEST_GUILESS_MAIN(tst_X11ProgramOverlays)
#include "tst_x11programoverlays.moc"
