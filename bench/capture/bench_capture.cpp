// Time from the capture call to the closed file for a 1920x1080 screen, as PNG
// and as JPEG, beside ImageMagick's `import -window root` of the same screen in
// the same run. Run under scripts/with-test-display.sh:
//   ctest --test-dir build -L bench -R bench_capture --verbose
#include "capture/CaptureManager.h"
#include "settings/SettingsManager.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QProcess>
#include <QRandomGenerator>
#include <QRasterWindow>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int runs = 7;

// Something like a slide: text, flat panels and a noisy photo-like area, so
// that the encoders have realistic work to do.
QImage desktopLike(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient background(0, 0, size.width(), size.height());
    background.setColorAt(0, QColor(30, 40, 60));
    background.setColorAt(1, QColor(200, 210, 230));
    painter.fillRect(image.rect(), background);
    painter.fillRect(QRect(80, 80, 900, 920), Qt::white);
    painter.setPen(Qt::black);
    painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 14));
    for (int line = 0; line < 36; ++line)
        painter.drawText(100, 120 + line * 24,
                         QStringLiteral("%1  The quarterly figures rose by %2 percent in region %3")
                             .arg(line + 1)
                             .arg(line * 7 % 23)
                             .arg(QChar(u'A' + line % 26)));
    painter.end();
    QRandomGenerator random(3);
    for (int y = 100; y < 900; ++y)
        for (int x = 1040; x < 1840; ++x) {
            const int v = (x + y) / 12 + static_cast<int>(random.bounded(24));
            image.setPixel(x, y, qRgb(v % 256, (v * 2) % 256, 255 - v % 256));
        }
    return image;
}

class Backdrop : public QRasterWindow
{
public:
    explicit Backdrop(QImage image)
        : m_image(std::move(image))
    {
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).drawImage(0, 0, m_image); }

private:
    QImage m_image;
};

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

double timeCapture(CaptureManager &manager, QScreen *screen)
{
    QList<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        QString error;
        if (!manager.captureScreen(screen, QImage(), nullptr, &error)) {
            std::fprintf(stderr, "capture failed: %s\n", qPrintable(error));
            return -1;
        }
        times << timer.nsecsElapsed() / 1e6;
    }
    return median(times);
}

double timeImport(const QRect &area, const QString &target, const QStringList &extra)
{
    QList<double> times;
    const QString crop = QStringLiteral("%1x%2+%3+%4")
                             .arg(area.width())
                             .arg(area.height())
                             .arg(area.x())
                             .arg(area.y());
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        QProcess import;
        import.start(QStringLiteral("import"),
                     QStringList { "-window", "root", "-crop", crop, "+repage" } + extra
                         + QStringList { target });
        if (!import.waitForFinished(60000) || import.exitCode() != 0) {
            std::fprintf(stderr, "import failed: %s\n", import.readAllStandardError().constData());
            return -1;
        }
        times << timer.nsecsElapsed() / 1e6;
    }
    return median(times);
}

} // namespace

int main(int argc, char *argv[])
{
    QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(".config")));
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));

    QScreen *screen = QGuiApplication::primaryScreen();
    const QRect area(screen->geometry().topLeft(), screen->size());
    if (screen->size() != QSize(1920, 1080))
        std::fprintf(stderr, "note: the screen is %dx%d, not 1920x1080\n", area.width(),
                     area.height());

    Backdrop backdrop(desktopLike(screen->size()));
    backdrop.setFlags(Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint);
    backdrop.setGeometry(area);
    backdrop.show();
    if (!QTest::qWaitForWindowExposed(&backdrop))
        return 1;
    QTest::qWait(500); // let the compositor catch up

    SettingsManager settings;
    settings.setCaptureSaveFolder(home.filePath(QStringLiteral("shots")));
    settings.setCaptureCopyToClipboard(true);
    settings.setCaptureImageQuality(92);
    CaptureManager manager(&settings);

    settings.setCaptureImageFormat(QStringLiteral("PNG"));
    const double ourPng = timeCapture(manager, screen);
    settings.setCaptureImageFormat(QStringLiteral("JPEG"));
    const double ourJpeg = timeCapture(manager, screen);
    const double importPng = timeImport(area, home.filePath(QStringLiteral("import.png")), {});
    const double importJpeg =
        timeImport(area, home.filePath(QStringLiteral("import.jpg")), { "-quality", "92" });
    if (ourPng < 0 || ourJpeg < 0 || importPng < 0 || importJpeg < 0)
        return 1;

    std::printf("capture of %dx%d, median of %d runs, clipboard copy on\n", area.width(),
                area.height(), runs);
    std::printf("  PNG : CaptureManager %7.1f ms   import %7.1f ms   ratio %.2f\n", ourPng,
                importPng, ourPng / importPng);
    std::printf("  JPEG: CaptureManager %7.1f ms   import %7.1f ms   ratio %.2f\n", ourJpeg,
                importJpeg, ourJpeg / importJpeg);
    return 0;
}
