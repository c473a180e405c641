#include "CaptureFaults.h"
#include "capture/CaptureManager.h"
#include "settings/SettingsManager.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>
#include <unistd.h>

namespace {

QImage plainGrab()
{
    QImage image(320, 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setPixelColor(30, 40, Qt::green);
    return image;
}

QImage noise(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(11);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, 0xff000000u | (random.generate() & 0xffffffu));
    return image;
}

QImage transparent(QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QByteArray encoded(const QImage &image, const char *format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    writer.write(image);
    return bytes;
}

QStringList files(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

} // namespace

enum class Failure { NoScreen, EmptyGrab, RegionOutside, RegionZero, FolderBlocked, DiskFull };

// CaptureManager with a grab that needs no display: messages, files, clipboard.
class TestCaptureManager : public QObject
{
    Q_OBJECT

public:
    // Settings, pictures and "~" all land in a folder of this run.
    static void initMain()
    {
        static QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(".config")));
        qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(".local/share")));
        qunsetenv("XDG_PICTURES_DIR");
        QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
        QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    }

private slots:
    void initTestCase()
    {
        QVERIFY(screen());
        m_settings = std::make_unique<SettingsManager>();
    }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_settings->setCaptureSaveFolder(m_folder->path());
        m_settings->setCaptureImageFormat(QStringLiteral("PNG"));
        m_settings->setCaptureImageQuality(92);
        m_settings->setCaptureCopyToClipboard(true);
        m_grab = plainGrab();
        QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    }

    void failures_data()
    {
        QTest::addColumn<Failure>("failure");
        QTest::addColumn<QString>("message");
        QTest::newRow("no screen") << Failure::NoScreen << "No active display found.";
        QTest::newRow("grab gives nothing") << Failure::EmptyGrab << "Screen capture failed.";
        QTest::newRow("region wholly outside")
            << Failure::RegionOutside << "Selected region is empty.";
        QTest::newRow("region of zero size") << Failure::RegionZero << "Selected region is empty.";
        QTest::newRow("folder cannot be made")
            << Failure::FolderBlocked << "Could not create capture folder.";
        QTest::newRow("disk full")
            << Failure::DiskFull << "Could not save capture: No space left on device";
    }

    void failures()
    {
        QFETCH(Failure, failure);
        QFETCH(QString, message);

        const QString folder = m_folder->path();
        QScreen *target = screen();
        std::optional<QRect> region;
        std::unique_ptr<ScratchMount> mount;
        switch (failure) {
        case Failure::NoScreen:
            target = nullptr;
            break;
        case Failure::EmptyGrab:
            m_grab = QImage();
            break;
        case Failure::RegionOutside:
            region = QRect(400, 10, 50, 50);
            break;
        case Failure::RegionZero:
            region = QRect(10, 10, 0, 0);
            break;
        case Failure::FolderBlocked: {
            QFile blocker(m_folder->filePath("file"));
            QVERIFY(blocker.open(QIODevice::WriteOnly));
            m_settings->setCaptureSaveFolder(blocker.fileName() + "/shots");
            break;
        }
        case Failure::DiskFull:
            mount = std::make_unique<ScratchMount>(folder, "size=128k", 0);
            if (!mount->mounted())
                QSKIP("cannot mount a small tmpfs here (needs root with the right to mount)");
            m_grab = noise({ 400, 300 });
            break;
        }
        const QStringList before = files(folder);

        auto manager = makeManager();
        QSignalSpy completed(manager.get(), &CaptureManager::captureCompleted);
        QString path = QStringLiteral("untouched");
        QString error;
        const bool ok = region
            ? manager->captureScreenRegion(target, *region, QImage(), &path, &error)
            : manager->captureScreen(target, transparent(m_grab.size()), &path, &error);

        QVERIFY(!ok);
        QCOMPARE(error, message);
        QCOMPARE(path, QStringLiteral("untouched"));
        QCOMPARE(completed.size(), 1);
        QCOMPARE(completed.at(0), (QVariantList { false, QString(), message }));
        QCOMPARE(files(folder), before);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
        // Null out-pointers are allowed on the failure path too.
        QVERIFY(!manager->captureScreenRegion(target, QRect(400, 10, 5, 5), QImage()));
    }

    void saves_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("webpWriter");
        QTest::addColumn<int>("quality");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QByteArray>("fileFormat");

        QTest::newRow("PNG") << "PNG" << true << 60 << "png" << QByteArray("png");
        QTest::newRow("JPEG at quality 60") << "JPEG" << true << 60 << "jpg" << QByteArray("jpeg");
        QTest::newRow("JPEG at quality 100")
            << "jpeg" << true << 100 << "jpg" << QByteArray("jpeg");
        if (QImageWriter::supportedImageFormats().contains("webp"))
            QTest::newRow("WebP with a writer")
                << "WebP" << true << 60 << "webp" << QByteArray("webp");
        QTest::newRow("WebP without a writer is PNG")
            << "WebP" << false << 60 << "png" << QByteArray("png");
    }

    void saves()
    {
        QFETCH(QString, format);
        QFETCH(bool, webpWriter);
        QFETCH(int, quality);
        QFETCH(QString, extension);
        QFETCH(QByteArray, fileFormat);

        m_settings->setCaptureImageFormat(format);
        m_settings->setCaptureImageQuality(quality);
        auto manager = makeManager(webpWriter);
        QCOMPARE(manager->webpSupported(), webpWriter);
        QSignalSpy completed(manager.get(), &CaptureManager::captureCompleted);
        QString path;
        QString error;
        QVERIFY2(manager->captureScreen(screen(), QImage(), &path, &error), qPrintable(error));

        QVERIFY(error.isEmpty());
        QCOMPARE(QFileInfo(path).absolutePath(), m_folder->path());
        QVERIFY2(QRegularExpression("^Glimmora-\\d{8}-\\d{6}\\." + extension + "$")
                     .match(QFileInfo(path).fileName())
                     .hasMatch(),
                 qPrintable(path));
        QCOMPARE(files(m_folder->path()), QStringList { QFileInfo(path).fileName() });
        QCOMPARE(completed.size(), 1);
        QCOMPARE(completed.at(0), (QVariantList { true, path, QStringLiteral("Capture saved.") }));

        QImageReader reader(path);
        QCOMPARE(reader.format(), fileFormat);
        const QImage written = reader.read();
        QCOMPARE(written.size(), m_grab.size());
        if (fileFormat == "png")
            QCOMPARE(written.convertToFormat(QImage::Format_RGB32), m_grab);
        if (fileFormat == "jpeg") {
            // The quality setting reaches the encoder: same bytes as a direct encode.
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            QCOMPARE(bytes, encoded(m_grab, "jpg", quality));
            QVERIFY(bytes != encoded(m_grab, "jpg", quality == 100 ? 60 : 100));
        }
        QCOMPARE(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
                 m_grab);
    }

    void annotations_data()
    {
        QTest::addColumn<QImage>("annotations");
        QTest::addColumn<QRect>("region"); // null: the whole screen
        QTest::addColumn<QPoint>("probe");
        QTest::addColumn<QColor>("expected");

        QImage same = transparent({ 320, 200 });
        same.setPixelColor(5, 6, Qt::red);
        QTest::newRow("whole screen, same size: at 0,0")
            << same << QRect() << QPoint(5, 6) << QColor(Qt::red);
        QTest::newRow("whole screen, same size: nothing else")
            << same << QRect() << QPoint(30, 40) << QColor(Qt::green);

        QImage half = transparent({ 160, 100 });
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 10; ++x)
                half.setPixelColor(x, y, Qt::blue);
        QTest::newRow("whole screen, half size: stretched")
            << half << QRect() << QPoint(17, 17) << QColor(Qt::blue);
        QTest::newRow("whole screen, half size: not beyond")
            << half << QRect() << QPoint(23, 23) << QColor(Qt::white);

        QImage onMark = transparent({ 320, 200 });
        onMark.setPixelColor(31, 41, Qt::red);
        QTest::newRow("region: cut, not scaled")
            << onMark << QRect(20, 30, 50, 60) << QPoint(11, 11) << QColor(Qt::red);
        QTest::newRow("region: grab below shows")
            << onMark << QRect(20, 30, 50, 60) << QPoint(10, 10) << QColor(Qt::green);
        QTest::newRow("region: no annotations")
            << QImage() << QRect(20, 30, 50, 60) << QPoint(11, 11) << QColor(Qt::white);
    }

    void annotations()
    {
        QFETCH(QImage, annotations);
        QFETCH(QRect, region);
        QFETCH(QPoint, probe);
        QFETCH(QColor, expected);

        auto manager = makeManager();
        QString path;
        const bool ok = region.isNull()
            ? manager->captureScreen(screen(), annotations, &path)
            : manager->captureScreenRegion(screen(), region, annotations, &path);
        QVERIFY(ok);
        const QImage written(path);
        QCOMPARE(written.size(), region.isNull() ? m_grab.size() : region.size());
        QCOMPARE(written.pixelColor(probe), expected);
        // The clipboard gets the composited image, as saved.
        QCOMPARE(QGuiApplication::clipboard()->image().pixelColor(probe), expected);
    }

    void clipboardOff()
    {
        m_settings->setCaptureCopyToClipboard(false);
        auto manager = makeManager();
        QVERIFY(manager->captureScreen(screen(), QImage()));
        QCOMPARE(files(m_folder->path()).size(), 1);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
        QVERIFY(QGuiApplication::clipboard()->image().isNull());
    }

    void vanishedFolderComesBack()
    {
        const QString folder = m_folder->filePath("deep/shots");
        m_settings->setCaptureSaveFolder(folder);
        auto manager = makeManager();
        QVERIFY(manager->captureScreen(screen(), QImage()));
        QVERIFY(QDir(m_folder->filePath("deep")).removeRecursively());
        QString path;
        QVERIFY(manager->captureScreen(screen(), QImage(), &path));
        QCOMPARE(QFileInfo(path).absolutePath(), folder);
        QCOMPARE(files(folder).size(), 1);
    }

    void withoutSettings()
    {
        auto manager = makeManager(true, nullptr);
        QString path;
        QVERIFY(manager->captureScreen(screen(), QImage(), &path));
        const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
        QVERIFY(pictures.startsWith(QDir::homePath()));
        QCOMPARE(QFileInfo(path).absolutePath(), pictures + "/Glimmora");
        QVERIFY(path.endsWith(".png"));
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    }

private:
    // Without `settings` the manager runs on the shared one of the test.
    std::unique_ptr<CaptureManager> makeManager(bool webp = true,
                                                std::optional<SettingsManager *> settings = {});
    QScreen *screen() const { return QGuiApplication::primaryScreen(); }

    std::unique_ptr<SettingsManager> m_settings;
    std::unique_ptr<QTemporaryDir> m_folder;
    QImage m_grab;
};

std::unique_ptr<CaptureManager>
TestCaptureManager::makeManager(bool webp, std::optional<SettingsManager *> settings)
{
    auto grab = [this](QScreen *) {
        return QPixmap::fromImage(m_grab);
    };
    return std::make_unique<CaptureManager>(settings.value_or(m_settings.get()), grab, webp);
}

QTEST_MAIN(TestCaptureManager)
#include "tst_capturemanager.moc"
