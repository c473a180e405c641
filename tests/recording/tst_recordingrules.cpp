#include "recording/FramePacer.h"
#include "recording/H264Settings.h"
#include "recording/HresultText.h"

#include <QRandomGenerator>
#include <QTest>

#include <tuple>

// Encoder settings, sample times and frame pacing: the arithmetic a recording
// depends on for its size, its timeline and its drop counter; and the error
// texts of failed Windows calls.
class TestRecordingRules : public QObject
{
    Q_OBJECT

private slots:
    void bitrate_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("fps");
        QTest::addColumn<int>("preset");
        QTest::addColumn<int>("bitrate");
        QTest::newRow("720p30 balanced is the first row exactly")
            << QSize(1280, 720) << 30 << 1 << 2000000;
        QTest::newRow("one pixel more takes the next row")
            << QSize(1281, 720) << 30 << 1 << 3500000;
        QTest::newRow("1080p30 balanced") << QSize(1920, 1080) << 30 << 1 << 3500000;
        QTest::newRow("1080p30 small file") << QSize(1920, 1080) << 30 << 0 << 2450000;
        QTest::newRow("1080p30 high quality") << QSize(1920, 1080) << 30 << 2 << 5075000;
        QTest::newRow("1440p high quality") << QSize(2560, 1440) << 30 << 2 << 8700000;
        QTest::newRow("4k small file") << QSize(3840, 2160) << 30 << 0 << 7000000;
        QTest::newRow("above 4k high quality") << QSize(3840, 2162) << 30 << 2 << 20300000;
        QTest::newRow("60 fps doubles") << QSize(1280, 720) << 60 << 1 << 4000000;
        QTest::newRow("120 fps is capped at double") << QSize(1280, 720) << 120 << 1 << 4000000;
        QTest::newRow("15 fps scales by 0.75, not 0.5") << QSize(1280, 720) << 15 << 1 << 1500000;
        QTest::newRow("negative preset is the small file")
            << QSize(1280, 720) << 30 << -3 << 1400000;
        QTest::newRow("preset above 2 is high quality") << QSize(1280, 720) << 30 << 7 << 2900000;
    }

    void bitrate()
    {
        QFETCH(QSize, size);
        QFETCH(int, fps);
        QFETCH(int, preset);
        QFETCH(int, bitrate);
        QCOMPARE(H264Settings::bitrateFor(size, fps, preset), bitrate);
        QCOMPARE(H264Settings::forStream(size, fps, preset).bitrate, bitrate);
    }

    // Out-of-range presets take the nearest end, and keyframes stay two
    // seconds apart (four for the small file) at any rate.
    void presetClampAndKeyframes_data()
    {
        QTest::addColumn<int>("fps");
        QTest::addColumn<int>("preset");
        QTest::addColumn<int>("clamped");
        QTest::addColumn<int>("keyframeSpacing");
        QTest::newRow("below the range is the small file") << 30 << -1 << 0 << 120;
        QTest::newRow("above the range is high quality") << 30 << 9 << 2 << 60;
        QTest::newRow("spacing follows fps") << 25 << 1 << 1 << 50;
    }

    void presetClampAndKeyframes()
    {
        QFETCH(int, fps);
        QFETCH(int, preset);
        QFETCH(int, clamped);
        const H264Settings s = H264Settings::forStream(QSize(1920, 1080), fps, preset);
        const H264Settings same = H264Settings::forStream(QSize(1920, 1080), fps, clamped);
        QCOMPARE(s.qualityPreset, clamped);
        QCOMPARE(std::tie(s.profile, s.rateControl, s.quality),
                 std::tie(same.profile, same.rateControl, same.quality));
        QTEST(s.keyframeSpacing, "keyframeSpacing");
    }

    void alignedSize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("multiple");
        QTest::addColumn<QSize>("aligned");
        QTest::newRow("even stays") << QSize(1920, 1080) << 2 << QSize(1920, 1080);
        QTest::newRow("odd rounds up") << QSize(1365, 767) << 2 << QSize(1366, 768);
        QTest::newRow("memory input to 16") << QSize(1920, 1080) << 16 << QSize(1920, 1088);
    }

    void alignedSize()
    {
        QFETCH(QSize, size);
        QFETCH(int, multiple);
        QTEST(H264Settings::alignedSize(size, multiple), "aligned");
    }

    void sampleTimes_data()
    {
        QTest::addColumn<QList<qint64>>("timestampsMs");
        QTest::addColumn<QList<qint64>>("ticks");
        QTest::newRow("rising times pass through")
            << QList<qint64> { 0, 33, 67 } << QList<qint64> { 0, 330000, 670000 };
        QTest::newRow("an equal time is one millisecond later, and later ones build on it")
            << QList<qint64> { 100, 100, 100, 150 }
            << QList<qint64> { 1000000, 1010000, 1020000, 1500000 };
        QTest::newRow("a time going backwards still rises")
            << QList<qint64> { 500, 200, 501 } << QList<qint64> { 5000000, 5010000, 5020000 };
    }

    void sampleTimes()
    {
        QFETCH(QList<qint64>, timestampsMs);
        QFETCH(QList<qint64>, ticks);
        SampleTimeline timeline;
        QList<qint64> stamped;
        for (qint64 ms : timestampsMs)
            stamped.append(timeline.stamp(ms));
        QCOMPARE(stamped, ticks);
    }

    void pacing_data()
    {
        QTest::addColumn<QList<qint64>>("ticksMs");
        QTest::addColumn<QList<bool>>("admitted");
        QTest::addColumn<qint64>("dropped");
        QTest::addColumn<qint64>("skipped");
        QTest::newRow("first tick, however late, adds nothing")
            << QList<qint64> { 5000 } << QList<bool> { true } << qint64(0) << qint64(0);
        QTest::newRow("steady 33 ms ticks")
            << QList<qint64> { 34, 67, 100, 134 } << QList<bool> { true, true, true, true }
            << qint64(0) << qint64(0);
        QTest::newRow("a tick that does not reach a new frame is a drop, not a skip")
            << QList<qint64> { 34, 66 } << QList<bool> { true, false } << qint64(1) << qint64(0);
        QTest::newRow("a gap adds target - last - 1 to both")
            << QList<qint64> { 34, 200 } << QList<bool> { true, true } << qint64(4) << qint64(4);
        QTest::newRow("a pause of two seconds is counted whole")
            << QList<qint64> { 100, 2100 } << QList<bool> { true, true } << qint64(59)
            << qint64(59);
    }

    void pacing()
    {
        QFETCH(QList<qint64>, ticksMs);
        QFETCH(QList<bool>, admitted);
        FramePacer pacer(30);
        QList<bool> got;
        for (qint64 ms : ticksMs)
            got.append(pacer.admit(ms));
        QCOMPARE(got, admitted);
        QTEST(pacer.droppedFrames(), "dropped");
        QTEST(pacer.skippedFrames(), "skipped");
    }

    void hresultTexts_data()
    {
        QTest::addColumn<quint32>("code");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("step");
        QTest::addColumn<QString>("wrapped");
        QTest::newRow("the system's message, trimmed")
            << 0xc00d36b2u << "The request is invalid in the current state.\r\n"
            << "IMFSinkWriter::Finalize failed: HRESULT 0xc00d36b2: The request is invalid in the "
               "current state."
            << "Failed to start Windows Graphics Capture: The request is invalid in the current "
               "state.";
        QTest::newRow("small codes are zero padded; no message gives the code instead")
            << 0x5u << " \r\n"
            << "IMFSinkWriter::Finalize failed: HRESULT 0x00000005: "
            << "Failed to start Windows Graphics Capture (HRESULT 0x00000005)";
        QTest::newRow("a message with a placeholder stays as it is")
            << 0x80070057u << "%1 is wrong"
            << "IMFSinkWriter::Finalize failed: HRESULT 0x80070057: %1 is wrong"
            << "Failed to start Windows Graphics Capture: %1 is wrong";
    }

    void hresultTexts()
    {
        QFETCH(quint32, code);
        QFETCH(QString, message);
        QTEST(HresultText::stepFailed(QStringLiteral("IMFSinkWriter::Finalize"), code, message),
              "step");
        QTEST(HresultText::wrap(QStringLiteral("Failed to start Windows Graphics Capture"), code,
                                message),
              "wrapped");
    }

    void nextTickAimsAtTheMiddleOfTheNextSlot_data()
    {
        QTest::addColumn<QList<qint64>>("admittedAtMs");
        QTest::addColumn<qint64>("nowMs");
        QTest::addColumn<qint64>("waitMs");
        // Slots at 30 fps are 33 1/3 ms; their middles lie at 16.7, 50, 83.3 ...
        QTest::newRow("before the first frame") << QList<qint64> {} << qint64(0) << qint64(17);
        QTest::newRow("after a long start, the slot it is in")
            << QList<qint64> {} << qint64(500) << qint64(17);
        QTest::newRow("after frame 0, the middle of slot 1")
            << QList<qint64> { 17 } << qint64(17) << qint64(33);
        QTest::newRow("a frame that took long waits less")
            << QList<qint64> { 17 } << qint64(40) << qint64(10);
        QTest::newRow("past the middle, at once")
            << QList<qint64> { 17 } << qint64(60) << qint64(0);
        QTest::newRow("after frame 1, the middle of slot 2")
            << QList<qint64> { 17, 50 } << qint64(50) << qint64(34);
    }

    void nextTickAimsAtTheMiddleOfTheNextSlot()
    {
        QFETCH(QList<qint64>, admittedAtMs);
        QFETCH(qint64, nowMs);
        FramePacer pacer(30);
        for (qint64 ms : admittedAtMs)
            QVERIFY(pacer.admit(ms));
        QTEST(pacer.msUntilNextTick(nowMs), "waitMs");
    }

    // A minute of ticks on a fake clock, each tick coming as late as a busy
    // machine makes it and each frame taking its time to serve.
    void slotPacingLosesNoFrameToJitter_data()
    {
        QTest::addColumn<int>("maxLateMs");
        QTest::addColumn<int>("maxWorkMs");
        QTest::addColumn<qint64>("stallAtMs");
        QTest::addColumn<qint64>("skipped");
        QTest::newRow("punctual") << 0 << 0 << qint64(-1) << qint64(0);
        QTest::newRow("ticks up to 15 ms late, frames up to 15 ms of work")
            << 15 << 15 << qint64(-1) << qint64(0);
        QTest::newRow("a stall of 100 ms loses the two slots it covers")
            << 0 << 0 << qint64(30000) << qint64(2);
    }

    void slotPacingLosesNoFrameToJitter()
    {
        QFETCH(int, maxLateMs);
        QFETCH(int, maxWorkMs);
        QFETCH(qint64, stallAtMs);
        QRandomGenerator random(16);
        FramePacer pacer(30);
        qint64 clockMs = 180; // the start-up before the first tick
        qint64 frames = 0;
        bool stalled = false;
        while (clockMs < 60000) {
            clockMs += pacer.msUntilNextTick(clockMs) + random.bounded(maxLateMs + 1);
            if (!pacer.admit(clockMs))
                continue;
            ++frames;
            clockMs += random.bounded(maxWorkMs + 1);
            if (stallAtMs >= 0 && clockMs >= stallAtMs && !stalled) {
                clockMs += 100;
                stalled = true;
            }
        }
        QTEST(pacer.skippedFrames(), "skipped");
        QCOMPARE(pacer.droppedFrames(), pacer.skippedFrames());
        // Every slot from the first frame on has its frame, but the skipped ones.
        const qint64 first = 180 * 30 / 1000;
        QCOMPARE(frames + pacer.skippedFrames(), pacer.lastFrameIndex() - first + 1);
        QVERIFY(pacer.lastFrameIndex() >= 1799);
    }

    void busyTickCountsAsDrop()
    {
        FramePacer pacer(30);
        QVERIFY(pacer.admit(40));
        pacer.countBusyTick();
        QCOMPARE(pacer.droppedFrames(), qint64(1));
        QCOMPARE(pacer.lastFrameIndex(), qint64(1));
        QCOMPARE(pacer.skippedFrames(), qint64(0));
        pacer.reset(30);
        QCOMPARE(pacer.droppedFrames(), qint64(0));
        QCOMPARE(pacer.lastFrameIndex(), qint64(-1));
    }
};

QTEST_GUILESS_MAIN(TestRecordingRules)
#include "tst_recordingrules.moc"
