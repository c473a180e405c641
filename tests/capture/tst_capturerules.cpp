#include "capture/CaptureComposer.h"
#include "capture/CaptureFileRules.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

// File naming, folder and format rules, and the image steps of a capture.
class TestCaptureRules : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void folder_data();
    void folder();
    void format_data();
    void format();
    void fileName_data();
    void fileName();

    void overlay_data();
    void overlay();
    void region_data();
    void region();
};

void TestCaptureRules::folder_data()
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

void TestCaptureRules::folder()
{
    QFETCH(QString, configured);
    QFETCH(QString, expected);
    QCOMPARE(CaptureFileRules::resolveFolder(configured), expected);
}

void TestCaptureRules::format_data()
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

void TestCaptureRules::format()
{
    QFETCH(QString, configured);
    QFETCH(bool, webp);
    QFETCH(QString, expected);
    QCOMPARE(CaptureFileRules::resolveFormat(configured, webp), expected);
}

void TestCaptureRules::fileName_data()
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
        << QStringList { "Glimmora-20250101-120000.png", "Glimmora-20250101-120000-2.png" } << "png"
        << "Glimmora-20250101-120000-3.png";
    QTest::newRow("a gap is filled")
        << QStringList { "Glimmora-20250101-120000.png", "Glimmora-20250101-120000-3.png" } << "png"
        << "Glimmora-20250101-120000-2.png";
    QTest::newRow("other extension does not collide")
        << QStringList { "Glimmora-20250101-120000.png" } << "jpg"
        << "Glimmora-20250101-120000.jpg";
    QTest::newRow("a folder of that name collides")
        << QStringList { "Glimmora-20250101-120000.webp/" } << "webp"
        << "Glimmora-20250101-120000-2.webp";
}

void TestCaptureRules::fileName()
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
    QCOMPARE(CaptureFileRules::nextFreePath(dir.path(), extension, when), dir.filePath(expected));
}

namespace {

QImage filled(QSize size, QColor colour, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, format);
    image.fill(colour);
    return image;
}

} // namespace

void TestCaptureRules::overlay_data()
{
    QTest::addColumn<QImage>("annotations");
    QTest::addColumn<QPoint>("probe");
    QTest::addColumn<QColor>("expected");

    // The grab is 200x100 white.
    QImage mark = filled({ 200, 100 }, Qt::transparent, QImage::Format_ARGB32_Premultiplied);
    mark.setPixelColor(7, 9, Qt::red);
    QTest::newRow("same size: drawn at 0,0") << mark << QPoint(7, 9) << QColor(Qt::red);
    QTest::newRow("same size: transparent leaves the grab")
        << mark << QPoint(8, 9) << QColor(Qt::white);

    QImage scaled = mark;
    scaled.setDevicePixelRatio(2.0);
    QTest::newRow("pixel ratio does not move the strokes")
        << scaled << QPoint(7, 9) << QColor(Qt::red);

    QImage half = filled({ 100, 50 }, Qt::transparent, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < 25; ++x)
            half.setPixelColor(x, y, Qt::blue);
    QTest::newRow("other size: stretched, inside") << half << QPoint(40, 80) << QColor(Qt::blue);
    QTest::newRow("other size: stretched, outside") << half << QPoint(60, 80) << QColor(Qt::white);

    const QImage veil =
        filled({ 200, 100 }, QColor(255, 0, 0, 128), QImage::Format_ARGB32_Premultiplied);
    QTest::newRow("half-transparent blends over")
        << veil << QPoint(100, 50) << QColor(255, 127, 127);
}

void TestCaptureRules::overlay()
{
    QFETCH(QImage, annotations);
    QFETCH(QPoint, probe);
    QFETCH(QColor, expected);
    const QImage grab = filled({ 200, 100 }, Qt::white);
    const QImage result = CaptureComposer::overlayAnnotations(grab, annotations);
    QCOMPARE(result.size(), grab.size());
    QCOMPARE(result.format(), grab.format());
    const QColor got = result.pixelColor(probe);
    QVERIFY2(qAbs(got.red() - expected.red()) <= 1 && qAbs(got.green() - expected.green()) <= 1
                 && qAbs(got.blue() - expected.blue()) <= 1,
             qPrintable(got.name()));
}

void TestCaptureRules::region_data()
{
    QTest::addColumn<QRect>("region");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("markAt"); // where the grab's (30, 40) lands; outside = not kept

    QTest::newRow("inside") << QRect(20, 30, 50, 60) << QSize(50, 60) << QPoint(10, 10);
    QTest::newRow("reaching beyond the left top")
        << QRect(-10, -20, 100, 100) << QSize(90, 80) << QPoint(30, 40);
    QTest::newRow("reaching beyond the right bottom")
        << QRect(150, 90, 100, 100) << QSize(50, 30) << QPoint(-1, -1);
    QTest::newRow("wholly outside") << QRect(300, 0, 10, 10) << QSize() << QPoint(-1, -1);
    QTest::newRow("zero width") << QRect(20, 30, 0, 50) << QSize() << QPoint(-1, -1);
    QTest::newRow("one pixel") << QRect(30, 40, 1, 1) << QSize(1, 1) << QPoint(0, 0);
}

void TestCaptureRules::region()
{
    QFETCH(QRect, region);
    QFETCH(QSize, size);
    QFETCH(QPoint, markAt);

    QImage grab = filled({ 200, 120 }, Qt::white);
    grab.setPixelColor(30, 40, Qt::green);
    QImage annotations = filled({ 200, 120 }, Qt::transparent, QImage::Format_ARGB32_Premultiplied);
    annotations.setPixelColor(30, 40, Qt::red);

    const QImage part = CaptureComposer::cropToRegion(grab, region);
    const QImage cut = CaptureComposer::cutAnnotations(annotations, grab, region);
    if (!size.isValid()) {
        QVERIFY(part.isNull());
        QVERIFY(cut.isNull());
        return;
    }
    QCOMPARE(part.size(), size);
    QCOMPARE(cut.size(), size);
    QVERIFY(CaptureComposer::cutAnnotations(QImage(), grab, region).isNull());
    if (markAt.x() >= 0) {
        QCOMPARE(part.pixelColor(markAt), QColor(Qt::green));
        QCOMPARE(cut.pixelColor(markAt), QColor(Qt::red));
        // Cut, not scaled: the composite keeps the stroke on its pixel.
        QCOMPARE(CaptureComposer::overlayAnnotations(part, cut).pixelColor(markAt),
                 QColor(Qt::red));
    }
}

QTEST_GUILESS_MAIN(TestCaptureRules)
#include "tst_capturerules.moc"
