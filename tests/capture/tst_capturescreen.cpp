#include "capture/CaptureManager.h"
#include "settings/SettingsManager.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImageReader>
#include <QProcess>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

// The desk of the test display: two 1920x1080 monitors side by side. A plain X
// client paints four quarters on RIGHT and one colour on LEFT, each window at
// (300, 200) of its monitor, 400x300 physical pixels.
constexpr QRgb grey = 0x808080;
constexpr QRgb leftColour = 0xff00ff;
constexpr QRgb topLeft = 0xC03020;
constexpr QRgb topRight = 0x20A040;
constexpr QRgb bottomLeft = 0x2040C0;
constexpr QRgb bottomRight = 0xE0C020;
const QRect patternOnMonitor(300, 200, 400, 300);

struct Probe
{
    QPoint at;
    QRgb colour;
};
using Probes = QList<Probe>;

QScreen *screenNamed(const QString &name)
{
    for (QScreen *screen : QGuiApplication::screens())
        if (screen->name() == name)
            return screen;
    return nullptr;
}

QString mismatches(const QImage &image, const Probes &probes)
{
    QStringList out;
    for (const Probe &probe : probes) {
        const QRgb got = image.pixel(probe.at) & 0xffffff;
        if (got != probe.colour)
            out << QStringLiteral("(%1,%2) is %3, want %4")
                       .arg(probe.at.x())
                       .arg(probe.at.y())
                       .arg(got, 6, 16, QLatin1Char('0'))
                       .arg(probe.colour, 6, 16, QLatin1Char('0'));
    }
    return out.join(QLatin1String("; "));
}

// The edges of the quarters on RIGHT, in the monitor's physical pixels.
Probes rightProbes(QPoint offset = {})
{
    const QPoint o = patternOnMonitor.topLeft() - offset;
    return { { o, topLeft },
             { o + QPoint(-1, 0), grey },
             { o + QPoint(0, -1), grey },
             { o + QPoint(199, 149), topLeft },
             { o + QPoint(200, 0), topRight },
             { o + QPoint(0, 150), bottomLeft },
             { o + QPoint(399, 299), bottomRight },
             { o + QPoint(400, 299), grey },
             { o + QPoint(399, 300), grey } };
}

} // namespace

Q_DECLARE_METATYPE(Probes)

// Still capture on a real X server: the right monitor, regions, annotations and
// the clipboard as another X client reads it.
class TestCaptureScreen : public QObject
{
    Q_OBJECT

public:
    static void initMain()
    {
        static QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(".config")));
        QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
        QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    }

private slots:
    void initTestCase()
    {
        m_left = screenNamed(QStringLiteral("LEFT"));
        m_right = screenNamed(QStringLiteral("RIGHT"));
        if (!m_left || !m_right)
            QSKIP("needs the two monitors LEFT and RIGHT of scripts/with-test-display.sh");
        // The probes below tell the monitors apart; the grab must be physical size.
        QCOMPARE(m_right->devicePixelRatio(),
                 qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble());
        QCOMPARE(m_right->size() * m_right->devicePixelRatio(), QSize(1920, 1080));

        QVERIFY(startPattern(patternOnMonitor.translated(1920, 0), { "quadrants" }));
        QVERIFY(startPattern(patternOnMonitor, { "solid", "ff00ff" }));
        // The compositor shows the windows a moment after they are painted.
        const Probe corner { patternOnMonitor.topLeft(), topLeft };
        QTRY_VERIFY_WITH_TIMEOUT(mismatches(m_right->grabWindow(0).toImage(), { corner }).isEmpty(),
                                 5000);
        const Probe leftCorner { patternOnMonitor.topLeft(), leftColour };
        QTRY_VERIFY_WITH_TIMEOUT(
            mismatches(m_left->grabWindow(0).toImage(), { leftCorner }).isEmpty(), 5000);

        m_settings = std::make_unique<SettingsManager>();
        m_settings->setCaptureImageFormat(QStringLiteral("PNG"));
        m_settings->setCaptureCopyToClipboard(true);
    }

    void cleanupTestCase()
    {
        for (auto &process : m_windows) {
            process->kill();
            process->waitForFinished(2000);
        }
    }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_settings->setCaptureSaveFolder(m_folder->path());
    }

    void wholeScreen_data()
    {
        QTest::addColumn<QString>("screen");
        QTest::addColumn<Probes>("probes");
        QTest::newRow("RIGHT holds its own window only") << "RIGHT" << rightProbes();
        QTest::newRow("LEFT holds its own window only") << "LEFT"
                                                        << Probes { { { 300, 200 }, leftColour },
                                                                    { { 699, 499 }, leftColour },
                                                                    { { 700, 499 }, grey },
                                                                    { { 1919, 1079 }, grey } };
    }

    void wholeScreen()
    {
        QFETCH(QString, screen);
        QFETCH(Probes, probes);
        CaptureManager manager(m_settings.get());
        QString path;
        QString error;
        QVERIFY2(manager.captureScreen(screenNamed(screen), QImage(), &path, &error),
                 qPrintable(error));
        QImageReader reader(path);
        QCOMPARE(reader.format(), QByteArray("png"));
        const QImage image = reader.read();
        QCOMPARE(image.size(), QSize(1920, 1080)); // physical, whatever the scale
        const QString wrong = mismatches(image, probes);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }

    void region_data()
    {
        QTest::addColumn<QRect>("region");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<Probes>("probes");
        QTest::newRow("around the pattern")
            << QRect(250, 150, 500, 400) << QSize(500, 400) << rightProbes({ 250, 150 });
        QTest::newRow("from beyond the top left, clipped")
            << QRect(-100, -100, 450, 350) << QSize(350, 250)
            << Probes { { { 300, 200 }, topLeft }, { { 299, 200 }, grey }, { { 300, 199 }, grey } };
        QTest::newRow("beyond the bottom right, clipped")
            << QRect(1800, 1000, 400, 400) << QSize(120, 80) << Probes { { { 119, 79 }, grey } };
        QTest::newRow("one pixel of the pattern")
            << QRect(700 - 1, 500 - 1, 1, 1) << QSize(1, 1) << Probes { { { 0, 0 }, bottomRight } };
    }

    void region()
    {
        QFETCH(QRect, region);
        QFETCH(QSize, size);
        QFETCH(Probes, probes);
        CaptureManager manager(m_settings.get());
        QString path;
        QString error;
        QVERIFY2(manager.captureScreenRegion(m_right, region, QImage(), &path, &error),
                 qPrintable(error));
        const QImage image(path);
        QCOMPARE(image.size(), size);
        const QString wrong = mismatches(image, probes);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }

    void annotations_data()
    {
        QTest::addColumn<QRect>("region"); // null: the whole screen
        QTest::addColumn<Probes>("probes");
        QTest::newRow("whole screen with strokes")
            << QRect()
            << Probes { { { 10, 10 }, 0xff0000 }, { { 29, 29 }, 0xff0000 }, { { 30, 30 }, grey } };
        QTest::newRow("region with strokes, cut at the same place")
            << QRect(20, 20, 400, 300)
            << Probes { { { 0, 0 }, 0xff0000 },
                        { { 9, 9 }, 0xff0000 },
                        { { 10, 10 }, grey },
                        { { 280, 180 }, topLeft } };
    }

    void annotations()
    {
        QFETCH(QRect, region);
        QFETCH(Probes, probes);
        CaptureManager manager(m_settings.get());
        const QImage layer = annotationLayer(m_right);
        QString path;
        QVERIFY(region.isNull() ? manager.captureScreen(m_right, layer, &path)
                                : manager.captureScreenRegion(m_right, region, layer, &path));
        const QString wrong = mismatches(QImage(path), probes);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }

    void clipboardForOtherClients()
    {
        QString path;
        {
            CaptureManager manager(m_settings.get());
            QVERIFY(
                manager.captureScreenRegion(m_right, QRect(250, 150, 500, 400), QImage(), &path));
        }
        // The manager is gone; the process still owns the selection. Our event loop
        // must run while xclip asks for the data, so no blocking wait here.
        QProcess xclip;
        xclip.start(QStringLiteral("xclip"),
                    { "-selection", "clipboard", "-t", "image/png", "-o" });
        QVERIFY2(xclip.waitForStarted(5000), "xclip is needed to read the clipboard");
        QTRY_COMPARE_WITH_TIMEOUT(xclip.state(), QProcess::NotRunning, 10000);
        QCOMPARE(xclip.exitCode(), 0);
        const QImage fromClipboard = QImage::fromData(xclip.readAllStandardOutput(), "PNG");
        QCOMPARE(fromClipboard.size(), QSize(500, 400));
        QCOMPARE(fromClipboard.convertToFormat(QImage::Format_RGB32),
                 QImage(path).convertToFormat(QImage::Format_RGB32));
    }

private:
    bool startPattern(const QRect &globalRect, const QStringList &mode);
    QImage annotationLayer(QScreen *screen) const;

    std::vector<std::unique_ptr<QProcess>> m_windows;
    std::unique_ptr<SettingsManager> m_settings;
    std::unique_ptr<QTemporaryDir> m_folder;
    QScreen *m_left = nullptr;
    QScreen *m_right = nullptr;
};

bool TestCaptureScreen::startPattern(const QRect &globalRect, const QStringList &mode)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(QStringLiteral(PATTERN_WINDOW),
                   QStringList { QString::number(globalRect.x()), QString::number(globalRect.y()),
                                 QString::number(globalRect.width()),
                                 QString::number(globalRect.height()) }
                       + mode);
    if (!process->waitForStarted(5000))
        return false;
    while (!process->canReadLine())
        if (!process->waitForReadyRead(5000))
            return false;
    const bool ready = process->readLine().trimmed() == "ready";
    m_windows.push_back(std::move(process));
    return ready;
}

// As the stroke renderer makes it: the screen's size at its pixel ratio, with
// a red square at physical (10, 10)-(29, 29).
QImage TestCaptureScreen::annotationLayer(QScreen *screen) const
{
    const qreal ratio = screen->devicePixelRatio();
    QImage layer((QSizeF(screen->size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    for (int y = 10; y < 30; ++y)
        for (int x = 10; x < 30; ++x)
            layer.setPixel(x, y, 0xffff0000);
    layer.setDevicePixelRatio(ratio);
    return layer;
}

QTEST_MAIN(TestCaptureScreen)
#include "tst_capturescreen.moc"
