#include "LogCapture.h"
#include "RecordingFakes.h"

#include <QTemporaryDir>
#include <QTest>

// The rules every writer shares, driven through a fake sink.
class TestVideoWriter : public QObject
{
    Q_OBJECT

    static CapturedFrame frameOf(QSize size, std::vector<unsigned char> *pixels)
    {
        pixels->assign(size_t(qMax(size.width(), 0)) * qMax(size.height(), 0) * 4 + 4, 0);
        CapturedFrame frame;
        frame.size = size;
        frame.bits = pixels->data();
        frame.bytesPerLine = size.width() * 4;
        return frame;
    }

private slots:
    void frameChecks_data()
    {
        QTest::addColumn<bool>("start");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("nullBits");
        QTest::addColumn<QString>("error");
        QTest::newRow("not started") << false << QSize(64, 48) << false << "Recorder not started.";
        QTest::newRow("no pixels") << true << QSize(64, 48) << true << "Invalid frame data.";
        QTest::newRow("empty size") << true << QSize(0, 48) << false << "Invalid frame data.";
        QTest::newRow("size mismatch") << true << QSize(66, 48) << false
                                       << "Frame size 66x48 does not match recorder size 64x48.";
    }

    void frameChecks()
    {
        QFETCH(bool, start);
        QFETCH(QSize, size);
        QFETCH(bool, nullBits);
        auto script = std::make_shared<FakeScript>();
        script->createFile = false;
        FakeVideoWriter writer(script);
        if (start)
            QVERIFY(writer.start(QStringLiteral("/tmp/x.mp4"), {}, QSize(64, 48), 30, 1));
        std::vector<unsigned char> pixels;
        CapturedFrame frame = frameOf(size, &pixels);
        if (nullBits)
            frame.bits = nullptr;
        QVERIFY(!writer.writeFrame(frame, 10));
        QTEST(writer.lastError(), "error");
        QCOMPARE(writer.writeFailures(), quint64(0));
        QVERIFY(script->sampleTimes.empty());
    }

    void startsOnceAndFinishesIdempotently()
    {
        auto script = std::make_shared<FakeScript>();
        script->createFile = false;
        FakeVideoWriter writer(script);
        QVERIFY2(writer.finish(), "finish on a writer that never started is fine");
        QVERIFY(writer.start(QStringLiteral("/tmp/x.mp4"), {}, QSize(63, 47), 30, 2));
        QCOMPARE(writer.settings().frameSize, QSize(64, 48));
        QCOMPARE(writer.settings().profile, int(H264Settings::High));
        QVERIFY(!writer.start(QStringLiteral("/tmp/y.mp4"), {}, QSize(64, 48), 30, 1));
        QCOMPARE(writer.lastError(), QStringLiteral("Recorder already started."));
        QCOMPARE(script->outputPath, QStringLiteral("/tmp/x.mp4"));
        QVERIFY(writer.finish());
        LogCapture log;
        QVERIFY(writer.finish());
        QVERIFY2(log.messages().isEmpty(), "a second finish logs nothing");
        QVERIFY(!writer.writeFrame({}, 0));
        QCOMPARE(writer.lastError(), QStringLiteral("Recorder not started."));
    }

    void timestampsRiseWhateverTheCallerPasses()
    {
        auto script = std::make_shared<FakeScript>();
        script->createFile = false;
        FakeVideoWriter writer(script);
        QVERIFY(writer.start(QStringLiteral("/tmp/x.mp4"), {}, QSize(64, 48), 30, 1));
        std::vector<unsigned char> pixels;
        const CapturedFrame frame = frameOf(QSize(64, 48), &pixels);
        for (qint64 ms : { 40, 40, 39, 100 })
            QVERIFY(writer.writeFrame(frame, ms));
        QCOMPARE(script->sampleTimes, (std::vector<qint64> { 400000, 410000, 420000, 1000000 }));
        QCOMPARE(writer.samplesSubmitted(), quint64(4));
    }

    void sinkFailuresAreCountedAndKept()
    {
        auto script = std::make_shared<FakeScript>();
        script->createFile = false;
        FakeVideoWriter writer(script);
        QVERIFY(writer.start(QStringLiteral("/tmp/x.mp4"), {}, QSize(64, 48), 30, 1));
        std::vector<unsigned char> pixels;
        const CapturedFrame frame = frameOf(QSize(64, 48), &pixels);
        script->submitError = QStringLiteral("No space left on device");
        LogCapture log;
        QVERIFY(!writer.writeFrame(frame, 1));
        QCOMPARE(writer.lastError(), QStringLiteral("No space left on device"));
        QCOMPARE(writer.writeFailures(), quint64(1));
        QCOMPARE(log.matching(QStringLiteral("FakeVideoWriter: No space left on device")).size(),
                 1);
        script->closeError = QStringLiteral("could not finalise");
        QVERIFY(!writer.finish());
        QCOMPARE(writer.lastError(), QStringLiteral("could not finalise"));
    }

    void failedOpenLeavesNothingWriting()
    {
        auto script = std::make_shared<FakeScript>();
        script->createFile = false;
        script->openError = QStringLiteral("Could not open file for writing.");
        FakeVideoWriter writer(script);
        QVERIFY(!writer.start(QStringLiteral("/tmp/x.mp4"), {}, QSize(64, 48), 30, 1));
        QCOMPARE(writer.lastError(), QStringLiteral("Could not open file for writing."));
        std::vector<unsigned char> pixels;
        QVERIFY(!writer.writeFrame(frameOf(QSize(64, 48), &pixels), 1));
        QCOMPARE(writer.lastError(), QStringLiteral("Recorder not started."));
        QVERIFY(!writer.start(QStringLiteral("/tmp/x.mp4"), {}, QSize(64, 48), 30, 1));
        QCOMPARE(writer.lastError(), QStringLiteral("Recorder already started."));
    }
};

QTEST_GUILESS_MAIN(TestVideoWriter)
#include "tst_videowriter.moc"
