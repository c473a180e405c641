#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

// The whole program on the test X server: the pen hotkey, a drag through
// XTest on the LEFT monitor, the stroke in a grab of the root window, then
// the clear hotkey. Settings and logs go to a throw-away home.
class TestDrawingEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void penStrokeReachesTheScreenAndClears();

private:
    void xdotool(const QStringList &arguments);
    QImage grabLeft() const;
    // Pixels of the starting pen colour #F4C24A along a row.
    static int penPixelsAlong(const QImage &image, int y, int fromX, int toX);

    QTemporaryDir m_home;
    QProcess m_program;
    QScreen *m_left = nullptr;
};

void TestDrawingEndToEnd::initTestCase()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        QSKIP("needs the X server of scripts/with-test-display.sh");
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen->name() == QLatin1String("LEFT"))
            m_left = screen;
    }
    QVERIFY2(m_left, "no monitor named LEFT");
    QVERIFY(m_home.isValid());

    // Past the first start: the welcome card would take every click.
    QVERIFY(QDir(m_home.path()).mkpath(QStringLiteral("config/Orvelline")));
    QFile config(m_home.filePath(QStringLiteral("config/Orvelline/Glimmora.conf")));
    QVERIFY(config.open(QIODevice::WriteOnly));
    config.write("[%General]\nfirstRunDone=true\n");
    config.close();
    // The single-instance lock lives in the temporary directory: keep ours apart.
    QVERIFY(QDir(m_home.path()).mkpath(QStringLiteral("tmp")));

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), m_home.filePath(QStringLiteral("tmp")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                       m_home.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), m_home.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), m_home.filePath(QStringLiteral("cache")));
    m_program.setProcessEnvironment(environment);
    m_program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_program.start(QStringLiteral(GLIMMORA_BINARY), {});
    QVERIFY2(m_program.waitForStarted(5000), qPrintable(m_program.errorString()));
    QTest::qWait(3000); // windows mapped, hotkeys grabbed
    QCOMPARE(m_program.state(), QProcess::Running);
}

void TestDrawingEndToEnd::cleanupTestCase()
{
    if (m_program.state() == QProcess::NotRunning)
        return;
    m_program.terminate();
    if (!m_program.waitForFinished(5000)) {
        m_program.kill();
        m_program.waitForFinished(2000);
    }
}

void TestDrawingEndToEnd::xdotool(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    QVERIFY(process.waitForFinished(5000));
    QCOMPARE(process.exitCode(), 0);
}

QImage TestDrawingEndToEnd::grabLeft() const
{
    return m_left->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
}

int TestDrawingEndToEnd::penPixelsAlong(const QImage &image, int y, int fromX, int toX)
{
    int count = 0;
    for (int x = fromX; x <= toX; ++x) {
        const QColor color = image.pixelColor(x, y);
        if (std::abs(color.red() - 0xF4) < 24 && std::abs(color.green() - 0xC2) < 24
            && std::abs(color.blue() - 0x4A) < 24)
            ++count;
    }
    return count;
}

void TestDrawingEndToEnd::penStrokeReachesTheScreenAndClears()
{
    // Mid-height on the left, away from the toolbar, the shortcut card at the
    // bottom left and the keystroke card at the bottom centre.
    const int y = 450;
    QCOMPARE(penPixelsAlong(grabLeft(), y, 250, 650), 0);

    xdotool({ "key", "alt+3" });
    QTest::qWait(500);
    xdotool({ "mousemove", "200", QString::number(y) });
    QTest::qWait(100);
    xdotool({ "mousedown", "1" });
    for (int x = 220; x <= 700; x += 20) {
        xdotool({ "mousemove", QString::number(x), QString::number(y) });
        QTest::qWait(20);
    }
    xdotool({ "mouseup", "1" });
    QTest::qWait(600);
    QImage image = grabLeft();
    image.save(QStringLiteral("e2e-stroke.png"));
    QVERIFY2(penPixelsAlong(image, y, 250, 650) > 380, "the stroke shows on the left monitor");
    QCOMPARE(penPixelsAlong(image, y - 40, 250, 650), 0);

    xdotool({ "key", "ctrl+shift+k" });
    QTest::qWait(600);
    image = grabLeft();
    image.save(QStringLiteral("e2e-cleared.png"));
    QCOMPARE(penPixelsAlong(image, y, 250, 650), 0);
}

QTEST_MAIN(TestDrawingEndToEnd)
#include "tst_drawinge2e.moc"
