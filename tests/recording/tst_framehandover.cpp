#include "LogCapture.h"
#include "recording/EncoderSlotPool.h"
#include "recording/FrameHandOver.h"

#include <QTest>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

using namespace std::chrono_literals;

// The hand-over between the capture callback thread and the recording worker,
// and the pool of encoder buffers behind it.
class TestFrameHandOver : public QObject
{
    Q_OBJECT

    using HandOver = FrameHandOver<int>;

    static void deliver(HandOver &handOver, int frame, bool *fetched = nullptr)
    {
        HandOver::CallbackScope scope(handOver);
        if (!scope.active())
            return;
        handOver.offer([&]() -> std::optional<int> {
            if (fetched)
                *fetched = true;
            return frame;
        });
    }

    static std::optional<int> takeNow(HandOver &handOver, QString *error = nullptr,
                                      std::chrono::milliseconds wait = 20ms)
    {
        std::optional<int> got;
        QString ignored;
        handOver.take(
            [&](int f) {
                got = f;
                return true;
            },
            error ? error : &ignored, wait);
        return got;
    }

private:
    // Pool: buffers are shared_ptr, busy while anyone else holds one.
    using Buffer = std::shared_ptr<int>;
    using Pool = EncoderSlotPool<Buffer, int>;

    static Pool makePool(int *allocations)
    {
        return Pool(
            { QStringLiteral("TestSource: allocated encoder buffer"),
              QStringLiteral(
                  "TestSource: encoder buffer pool is busy; allocated temporary buffer") },
            [allocations](const int &desc) {
                ++*allocations;
                return std::make_shared<int>(desc);
            },
            [](const Buffer &b) { return b.use_count() >= 2; });
    }

private slots:
    void pendingFrameWinsAndNewcomersAreCounted()
    {
        HandOver handOver;
        bool fetchedSecond = false;
        deliver(handOver, 1);
        deliver(handOver, 2, &fetchedSecond);
        deliver(handOver, 3);
        QVERIFY2(!fetchedSecond, "a newcomer while one is pending is never fetched");
        QCOMPARE(takeNow(handOver), std::optional<int>(1));
        const FrameHandOverStats stats = handOver.stats();
        QCOMPARE(stats.receivedFrames, quint64(1));
        QCOMPARE(stats.droppedBeforeWorker, quint64(2));
        QCOMPARE(stats.copiedForEncoder, quint64(1));
    }

    void aFrameIsDeliveredOnce()
    {
        HandOver handOver;
        handOver.setNoFrameError(QStringLiteral("no frame came"));
        deliver(handOver, 7);
        QCOMPARE(takeNow(handOver), std::optional<int>(7));
        QString error;
        QCOMPARE(takeNow(handOver, &error), std::nullopt);
        QCOMPARE(error, QStringLiteral("no frame came"));
        deliver(handOver, 8);
        QCOMPARE(takeNow(handOver), std::optional<int>(8));
    }

    void emptyFetchAndFailedCopyKeepNothing()
    {
        HandOver handOver;
        {
            HandOver::CallbackScope scope(handOver);
            handOver.offer([]() -> std::optional<int> { return std::nullopt; });
        }
        QCOMPARE(takeNow(handOver), std::nullopt);
        QCOMPARE(handOver.stats().receivedFrames, quint64(0));

        deliver(handOver, 1);
        QString error;
        QVERIFY(!handOver.take(
            [&](int) {
                error = QStringLiteral("copy failed");
                return false;
            },
            &error));
        QCOMPARE(error, QStringLiteral("copy failed"));
        QCOMPARE(handOver.stats().copiedForEncoder, quint64(0));
        QCOMPARE(takeNow(handOver), std::nullopt);
    }

    void waitsHalfASecondThenFails()
    {
        HandOver handOver;
        QString error;
        const auto begin = std::chrono::steady_clock::now();
        QVERIFY(!handOver.take([](int) { return true; }, &error));
        const auto waited = std::chrono::steady_clock::now() - begin;
        QVERIFY(waited >= 490ms);
        QCOMPARE(error, QStringLiteral("The capture source did not produce a frame."));
    }

    void aFrameArrivingDuringTheWaitIsTaken()
    {
        HandOver handOver;
        std::thread callback([&] {
            std::this_thread::sleep_for(50ms);
            deliver(handOver, 42);
        });
        const std::optional<int> got = takeNow(handOver, nullptr, 5000ms);
        callback.join();
        QCOMPARE(got, std::optional<int>(42));
    }

    void stopWaitsForACallbackInFlight()
    {
        HandOver handOver;
        std::atomic<bool> inside = false;
        std::atomic<bool> release = false;
        std::atomic<bool> callbackDone = false;
        std::thread callback([&] {
            HandOver::CallbackScope scope(handOver);
            inside = true;
            while (!release)
                std::this_thread::sleep_for(1ms);
            handOver.offer([]() -> std::optional<int> { return 5; });
            callbackDone = true;
        });
        while (!inside)
            std::this_thread::sleep_for(1ms);
        std::atomic<bool> stopped = false;
        std::thread stopper([&] {
            handOver.stop();
            stopped = true;
        });
        std::this_thread::sleep_for(100ms);
        QVERIFY2(!stopped, "stop returned while a callback was still running");
        release = true;
        stopper.join();
        callback.join();
        QVERIFY(callbackDone);
        QVERIFY(stopped);

        bool lateFetched = false;
        deliver(handOver, 6, &lateFetched);
        QVERIFY2(!lateFetched, "a callback after stop must leave at once");
        QCOMPARE(handOver.stats().receivedFrames, quint64(1));

        handOver.restart();
        QCOMPARE(handOver.stats().receivedFrames, quint64(0));
        QCOMPARE(takeNow(handOver), std::nullopt);
        deliver(handOver, 9);
        QCOMPARE(takeNow(handOver), std::optional<int>(9));
    }

    void freeSlotsAreReused()
    {
        int allocations = 0;
        Pool pool = makePool(&allocations);
        for (int i = 0; i < 20; ++i) {
            Buffer b = pool.acquire(1);
            QCOMPARE(*b, 1);
        }
        QCOMPARE(pool.poolAllocations(), quint64(Pool::Size));
        QCOMPARE(pool.temporaryAllocations(), quint64(0));
        QCOMPARE(allocations, Pool::Size);
    }

    void busySlotsAreSkippedAndTemporariesTakeOver()
    {
        int allocations = 0;
        Pool pool = makePool(&allocations);
        std::vector<Buffer> held;
        for (int i = 0; i < Pool::Size; ++i)
            held.push_back(pool.acquire(1));
        for (int i = 0; i < Pool::Size; ++i) {
            for (int j = i + 1; j < Pool::Size; ++j)
                QVERIFY2(held[i] != held[j], "a busy slot was handed out twice");
        }
        Buffer temporary = pool.acquire(1);
        QCOMPARE(pool.temporaryAllocations(), quint64(1));
        QVERIFY(std::find(held.begin(), held.end(), temporary) == held.end());

        held[3].reset();
        pool.acquire(1);
        QCOMPARE(pool.temporaryAllocations(), quint64(1));
        QCOMPARE(pool.uses(3), quint64(2));
    }

    void aSlotOfAnotherSizeIsReallocatedEvenWhileHeld()
    {
        int allocations = 0;
        Pool pool = makePool(&allocations);
        Buffer old = pool.acquire(1);
        for (int i = 1; i < Pool::Size; ++i)
            pool.acquire(1);
        Buffer changed = pool.acquire(2);
        QCOMPARE(*changed, 2);
        QCOMPARE(*old, 1);
        QCOMPARE(pool.poolAllocations(), quint64(Pool::Size + 1));
        QCOMPARE(pool.temporaryAllocations(), quint64(0));
    }

    // The first three temporaries warn, then every 30th.
    void temporaryWarningsAreRateLimited()
    {
        int allocations = 0;
        Pool pool = makePool(&allocations);
        std::vector<Buffer> held;
        for (int i = 0; i < Pool::Size; ++i)
            held.push_back(pool.acquire(1));
        LogCapture log;
        for (int i = 0; i < 61; ++i)
            held.push_back(pool.acquire(1));
        const QStringList warnings = log.matching(QStringLiteral("pool is busy"));
        QCOMPARE(warnings.size(), 5);
        QVERIFY(warnings.first().startsWith(QStringLiteral("TestSource: ")));
        QVERIFY(warnings.at(3).contains(QStringLiteral("temporaryAllocations 30")));
        QVERIFY(warnings.at(4).contains(QStringLiteral("temporaryAllocations 60")));
    }
};

QTEST_GUILESS_MAIN(TestFrameHandOver)
#include "tst_framehandover.moc"
