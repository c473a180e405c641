#include "platform/linux/GstFrameSource.h"
#include "platform/linux/GstVideoWriter.h"

#include <QTest>

// How a display rectangle becomes an ximagesrc crop, and the encoder table
// becomes x264enc settings.
class TestGstMapping : public QObject
{
    Q_OBJECT

private slots:
    void crop_data()
    {
        QTest::addColumn<QRect>("rect");
        QTest::addColumn<QSize>("root");
        QTest::addColumn<QList<int>>("crop"); // startx, starty, endx, endy; empty: refused
        QTest::addColumn<QSize>("frameSize");
        const QSize desk(3840, 1080);
        QTest::newRow("right monitor, inclusive ends")
            << QRect(1920, 0, 1920, 1080) << desk << QList<int> { 1920, 0, 3839, 1079 }
            << QSize(1920, 1080);
        QTest::newRow("left monitor") << QRect(0, 0, 1920, 1080) << desk
                                      << QList<int> { 0, 0, 1919, 1079 } << QSize(1920, 1080);
        QTest::newRow("odd size loses its last column and row")
            << QRect(0, 0, 1365, 767) << desk << QList<int> { 0, 0, 1363, 765 } << QSize(1364, 766);
        QTest::newRow("tiny area grows to 2x2")
            << QRect(10, 10, 1, 1) << desk << QList<int> { 10, 10, 11, 11 } << QSize(2, 2);
        QTest::newRow("past the right edge is refused")
            << QRect(1921, 0, 1920, 1080) << desk << QList<int>() << QSize();
        QTest::newRow("a removed monitor's area on a shrunk root is refused")
            << QRect(1920, 0, 1920, 1080) << QSize(1920, 1080) << QList<int>() << QSize();
        QTest::newRow("negative origin is refused")
            << QRect(-10, 0, 100, 100) << desk << QList<int>() << QSize();
        QTest::newRow("unknown root size is refused")
            << QRect(0, 0, 100, 100) << QSize() << QList<int>() << QSize();
    }

    void crop()
    {
        QFETCH(QRect, rect);
        QFETCH(QSize, root);
        QFETCH(QList<int>, crop);
        GstFrameSource::Crop got;
        QString error;
        const bool ok = GstFrameSource::cropFor(rect, root, &got, &error);
        QCOMPARE(ok, !crop.isEmpty());
        if (!ok) {
            QVERIFY(error.startsWith(QStringLiteral("Capture area ")));
            return;
        }
        QCOMPARE((QList<int> { got.startX, got.startY, got.endX, got.endY }), crop);
        QTEST(got.frameSize, "frameSize");
    }

    void x264_data()
    {
        QTest::addColumn<int>("preset");
        QTest::addColumn<QString>("speed");
        QTest::addColumn<uint>("kbps");
        QTest::addColumn<uint>("vbvMs");
        QTest::addColumn<uint>("keyInt");
        QTest::addColumn<QString>("profile");
        QTest::newRow("small file") << 0 << "ultrafast" << 2450u << 3000u << 120u << "main";
        QTest::newRow("balanced") << 1 << "ultrafast" << 3500u << 1000u << 60u << "main";
        QTest::newRow("high quality") << 2 << "superfast" << 5075u << 1000u << 60u << "high";
    }

    void x264()
    {
        QFETCH(int, preset);
        const GstVideoWriter::X264Options options =
            GstVideoWriter::x264Options(H264Settings::forStream(QSize(1920, 1080), 30, preset));
        QTEST(QString::fromLatin1(options.speedPreset), "speed");
        QTEST(options.bitrateKbps, "kbps");
        QTEST(options.vbvBufferMs, "vbvMs");
        QTEST(options.keyIntMax, "keyInt");
        QTEST(QString::fromLatin1(options.profile), "profile");
    }
};

QTEST_GUILESS_MAIN(TestGstMapping)
#include "tst_gstmapping.moc"
