#include "LogCapture.h"
#include "RecordingFakes.h"

#include <QTest>

// The rules every writer shares, driven through a fake sink.
class TestVideoWriter : public QObject
{
    Q_OBJECT

    std::shared_ptr<FakeScript> m_script;
    std::unique_ptr<FakeVideoWriter> m_writer;
    std::vector<unsigned char> m_pixels;

    bool start(QSize size = QSize(64, 48), int preset = 1)
    {
        return m_writer->start(QStringLiteral("/tmp/x.mp4"), {}, size, 30, preset);
    }

    CapturedFrame frameOf(QSize size)
    {
        m_pixels.assign(size_t(qMax(size.width(), 0)) * qMax(size.height(), 0) * 4 + 4, 0);
        CapturedFrame frame;
        frame.size = size;
        frame.bits = m_pixels.data();
        frame.bytesPerLine = size.width() * 4;
        return frame;
    }

private slots:
    void init()
    {
        m_script = std::make_shared<FakeScript>();
        m_script->createFile = false;
        m_writer = std::make_unique<FakeVideoWriter>(m_script);
    }

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
        if (start)
            QVERIFY(this->start());
        CapturedFrame frame = frameOf(size);
        if (nullBits)
            frame.bits = nullptr;
        QVERIFY(!m_writer->writeFrame(frame, 10));
        QTEST(m_writer->lastError(), "error");
        QCOMPARE(m_writer->writeFailures(), quint64(0));
        QVERIFY(m_script->sampleTimes.empty());
    }

    void startsOnceAndFinishesIdempotently()
    {
        QVERIFY2(m_writer->finish(), "finish on a writer that never started is fine");
        QVERIFY(start(QSize(63, 47), 2));
        QCOMPARE(m_writer->settings().frameSize, QSize(64, 48));
        QVERIFY(!start());
        QCOMPARE(m_writer->lastError(), QStringLiteral("Recorder already started."));
        QCOMPARE(m_script->outputPath, QStringLiteral("/tmp/x.mp4"));
        // Equal times from the caller still give rising sample times.
        const CapturedFrame frame = frameOf(QSize(64, 48));
        QVERIFY(m_writer->writeFrame(frame, 40) && m_writer->writeFrame(frame, 40));
        QCOMPARE(m_script->sampleTimes, (std::vector<qint64> { 400000, 410000 }));
        QVERIFY(m_writer->finish());
        LogCapture log;
        QVERIFY(m_writer->finish());
        QVERIFY2(log.messages().isEmpty(), "a second finish logs nothing");
        QVERIFY(!m_writer->writeFrame(frame, 100));
        QCOMPARE(m_writer->lastError(), QStringLiteral("Recorder not started."));
    }

    void sinkFailuresAreCountedAndKept()
    {
        QVERIFY(start());
        m_script->submitError = QStringLiteral("No space left on device");
        LogCapture log;
        QVERIFY(!m_writer->writeFrame(frameOf(QSize(64, 48)), 1));
        QCOMPARE(m_writer->lastError(), QStringLiteral("No space left on device"));
        QCOMPARE(m_writer->writeFailures(), quint64(1));
        QCOMPARE(log.matching(QStringLiteral("FakeVideoWriter: No space left on device")).size(),
                 1);
        m_script->closeError = QStringLiteral("could not finalise");
        QVERIFY(!m_writer->finish());
        QCOMPARE(m_writer->lastError(), QStringLiteral("could not finalise"));
    }

    void failedOpenLeavesNothingWriting()
    {
        m_script->openError = QStringLiteral("Could not open file for writing.");
        QVERIFY(!start());
        QCOMPARE(m_writer->lastError(), QStringLiteral("Could not open file for writing."));
        QVERIFY(!m_writer->writeFrame(frameOf(QSize(64, 48)), 1));
        QCOMPARE(m_writer->lastError(), QStringLiteral("Recorder not started."));
        QVERIFY(!start());
        QCOMPARE(m_writer->lastError(), QStringLiteral("Recorder already started."));
    }
};

QTEST_GUILESS_MAIN(TestVideoWriter)
#include "tst_videowriter.moc"
