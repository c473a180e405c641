#include "CaptureFaults.h"
#include "capture/AtomicImageFile.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

namespace {

// Noise does not compress, so the encoded file is about as large as the pixels.
QImage noise(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<quint32 *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = 0xff000000u | (random.generate() & 0xffffffu);
    }
    return image;
}

QStringList entries(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

} // namespace

enum class Fault { ReadOnlyFolder, FullDisk, FileSizeLimit, MissingFolder, UnknownFormat };

// The write that never leaves a partial file under the final name.
class TestCaptureSave : public QObject
{
    Q_OBJECT

private slots:
    void faults_data()
    {
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<QString>("message");
        const QString prefix = QStringLiteral("Could not save capture: ");
        QTest::newRow("read-only folder")
            << Fault::ReadOnlyFolder
            << prefix + (::geteuid() == 0 ? "Read-only file system" : "Permission denied");
        QTest::newRow("disk full during the write")
            << Fault::FullDisk << prefix + "No space left on device";
        QTest::newRow("file size limit during the write")
            << Fault::FileSizeLimit << prefix + "File too large";
        QTest::newRow("folder vanished")
            << Fault::MissingFolder << prefix + "No such file or directory";
        QTest::newRow("no writer for the format")
            << Fault::UnknownFormat << "Unsupported image format";
    }

    void faults()
    {
        QFETCH(Fault, fault);
        QFETCH(QString, message);

        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QString folder = dir.path();
        QByteArray format = "png";
        const QImage image = noise({ 640, 480 }); // about 1 MB as PNG
        std::unique_ptr<ScratchMount> mount;
        std::unique_ptr<FileSizeLimit> limit;

        switch (fault) {
        case Fault::ReadOnlyFolder:
            if (::geteuid() != 0) {
                QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
                break;
            }
            // Root ignores permission bits; a read-only mount stops it.
            mount = std::make_unique<ScratchMount>(folder, "size=1m", MS_RDONLY);
            if (!mount->mounted())
                QSKIP("cannot mount a read-only tmpfs here (needs the right to mount as root)");
            break;
        case Fault::FullDisk:
            mount = std::make_unique<ScratchMount>(folder, "size=256k", 0);
            if (!mount->mounted())
                QSKIP("cannot mount a small tmpfs here (needs root with the right to mount)");
            break;
        case Fault::FileSizeLimit:
            limit = std::make_unique<FileSizeLimit>(100 * 1024);
            break;
        case Fault::MissingFolder:
            folder = dir.filePath("gone");
            break;
        case Fault::UnknownFormat:
            format = "nosuchformat";
            break;
        }

        // A file that already carries the name must survive a failed write.
        const QString keptPath = folder + "/kept.png";
        const bool canKeep = fault == Fault::FullDisk || fault == Fault::FileSizeLimit
            || fault == Fault::UnknownFormat;
        if (canKeep) {
            QFile kept(keptPath);
            QVERIFY(kept.open(QIODevice::WriteOnly));
            kept.write("older");
        }
        const QStringList before = QDir(folder).exists() ? entries(folder) : QStringList();

        const QString path = canKeep ? keptPath : folder + "/shot.png";
        QString error;
        QVERIFY(!AtomicImageFile::write(image, path, format, -1, &error));
        limit.reset();

        QCOMPARE(error, message);
        if (QDir(folder).exists())
            QCOMPARE(entries(folder), before); // no temporary file left behind
        if (canKeep) {
            QFile kept(keptPath);
            QVERIFY(kept.open(QIODevice::ReadOnly));
            QCOMPARE(kept.readAll(), QByteArray("older"));
        } else {
            QVERIFY(!QFileInfo::exists(path));
        }
        if (fault == Fault::ReadOnlyFolder && !mount)
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
};

QTEST_GUILESS_MAIN(TestCaptureSave)
#include "tst_capturesave.moc"
