#include "capture/CaptureFileRules.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

// File naming, folder and format rules of a capture.
class TestCaptureRules : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void folder_data()
    {
        QTest::addColumn<QString>("configured");
        QTest::addColumn<QString>("expected");
        const QString home = QDir::homePath();
        QTest::newRow("~/ at the start means home") << "~/shots" << home + "/shots";
        QTest::newRow("blanks around ~/ are trimmed first") << "  ~/shots/a " << home + "/shots/a";
        QTest::newRow("~ without slash stays a relative path") << "~shots"
                                                               << "~shots";
        QTest::newRow("~ in the middle is left alone") << "/data/~/shots"
                                                       << "/data/~/shots";
        QTest::newRow("absolute path kept, trimmed") << "\t/srv/caps "
                                                     << "/srv/caps";
        const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
        QTest::newRow("empty goes to pictures/Glimmora") << "" << pictures + "/Glimmora";
        QTest::newRow("blanks only count as empty") << "   " << pictures + "/Glimmora";
    }

    void folder()
    {
        QFETCH(QString, configured);
        QFETCH(QString, expected);
        QCOMPARE(CaptureFileRules::resolveFolder(configured), expected);
    }

    void format_data()
    {
        QTest::addColumn<QString>("configured");
        QTest::addColumn<bool>("webp");
        QTest::addColumn<QString>("expected");
        QTest::newRow("stored PNG") << "PNG" << true << "png";
        QTest::newRow("JPEG with blanks") << "  JPEG \n" << false << "jpg";
        QTest::newRow("jpg lower case") << "jpg" << false << "jpg";
        QTest::newRow("Jpeg mixed case") << "Jpeg" << false << "jpg";
        QTest::newRow("WebP with a writer") << "WebP" << true << "webp";
        QTest::newRow("WebP without a writer falls back") << "WebP" << false << "png";
        QTest::newRow("unknown name") << "gif" << true << "png";
        QTest::newRow("blank inside is not JPEG") << "JP EG" << true << "png";
        QTest::newRow("empty") << "" << true << "png";
    }

    void format()
    {
        QFETCH(QString, configured);
        QFETCH(bool, webp);
        QFETCH(QString, expected);
        QCOMPARE(CaptureFileRules::resolveFormat(configured, webp), expected);
    }

    void fileName_data()
    {
        QTest::addColumn<QStringList>("existing");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("expected");
        QTest::newRow("first capture of a second") << QStringList() << "png"
                                                   << "Glimmora-20250101-120000.png";
        QTest::newRow("second capture gets -2")
            << QStringList { "Glimmora-20250101-120000.png" } << "png"
            << "Glimmora-20250101-120000-2.png";
        QTest::newRow("third capture gets -3")
            << QStringList { "Glimmora-20250101-120000.png", "Glimmora-20250101-120000-2.png" }
            << "png"
            << "Glimmora-20250101-120000-3.png";
        QTest::newRow("a gap is filled")
            << QStringList { "Glimmora-20250101-120000.png", "Glimmora-20250101-120000-3.png" }
            << "png"
            << "Glimmora-20250101-120000-2.png";
        QTest::newRow("other extension does not collide")
            << QStringList { "Glimmora-20250101-120000.png" } << "jpg"
            << "Glimmora-20250101-120000.jpg";
        QTest::newRow("a folder of that name collides")
            << QStringList { "Glimmora-20250101-120000.webp/" } << "webp"
            << "Glimmora-20250101-120000-2.webp";
    }

    void fileName()
    {
        QFETCH(QStringList, existing);
        QFETCH(QString, extension);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        for (const QString &name : existing) {
            if (name.endsWith(QLatin1Char('/'))) {
                QVERIFY(QDir(dir.path()).mkdir(name.chopped(1)));
                continue;
            }
            QFile file(dir.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        const QDateTime when(QDate(2025, 1, 1), QTime(12, 0, 0));
        QCOMPARE(CaptureFileRules::nextFreePath(dir.path(), extension, when),
                 dir.filePath(expected));
    }
};

QTEST_GUILESS_MAIN(TestCaptureRules)
#include "tst_capturerules.moc"
