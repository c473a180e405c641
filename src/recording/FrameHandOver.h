#pragma once

#include <QString>
#include <QtGlobal>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

struct FrameHandOverStats
{
    quint64 receivedFrames = 0;
    quint64 droppedBeforeWorker = 0;
    quint64 copiedForEncoder = 0;
};

// Hands pictures from a capture callback thread to a paced consumer. One
// picture is held until the consumer asks: the pending picture wins, and a
// newcomer while one is pending is dropped and counted. The consumer waits a
// bounded time for a picture and gets each one once. Stopping waits for any
// callback already past the entry test; a later callback sees `stopping`.
// frameMutex and callbackMutex are never held together.
template<typename Frame>
class FrameHandOver
{
public:
    static constexpr std::chrono::milliseconds DefaultWait { 500 };

    // Entry guard of the callback thread: check active() before anything else.
    class CallbackScope
    {
    public:
        explicit CallbackScope(FrameHandOver &handOver)
            : m_handOver(handOver)
            , m_active(handOver.enterCallback())
        {
        }
        ~CallbackScope()
        {
            if (m_active)
                m_handOver.leaveCallback();
        }
        CallbackScope(const CallbackScope &) = delete;
        CallbackScope &operator=(const CallbackScope &) = delete;
        bool active() const { return m_active; }

    private:
        FrameHandOver &m_handOver;
        bool m_active;
    };

    // Callback thread, inside an active CallbackScope. `fetch` runs outside
    // the lock and only when the picture is going to be kept; it returns an
    // empty optional when there is nothing to keep.
    template<typename Fetch>
    void offer(Fetch fetch)
    {
        {
            std::lock_guard lock(m_frameMutex);
            if (dropIfPending())
                return;
        }
        std::optional<Frame> frame = fetch();
        if (!frame)
            return;
        std::lock_guard lock(m_frameMutex);
        if (dropIfPending())
            return;
        m_latest = std::move(*frame);
        ++m_stats.receivedFrames;
        m_frameReady = true;
        m_frameCondition.notify_all();
    }

    // Consumer thread. Waits at most `wait` for a picture; on success calls
    // `copy` with it under frameMutex (copy it out there, quickly), counts the
    // copy and lets the picture go. Returns false with an error text when no
    // picture came or `copy` returned false.
    template<typename Copy>
    bool take(Copy copy, QString *error, std::chrono::milliseconds wait = DefaultWait)
    {
        std::unique_lock lock(m_frameMutex);
        if (!m_frameReady || !m_latest)
            m_frameCondition.wait_for(lock, wait, [this] { return m_frameReady && m_latest; });
        m_frameReady = false;
        if (!m_latest) {
            if (error)
                *error = m_noFrameError;
            return false;
        }
        const bool copied = copy(*m_latest);
        m_latest.reset();
        if (copied)
            ++m_stats.copiedForEncoder;
        return copied;
    }

    // Any thread but the callback's. Returns with no callback running.
    void stop()
    {
        std::unique_lock lock(m_callbackMutex);
        m_stopping = true;
        m_callbackCondition.wait(lock, [this] { return m_activeCallbacks == 0; });
    }

    // Before a new session: callbacks are let in again, counters start at 0.
    void restart()
    {
        clear();
        std::lock_guard lock(m_callbackMutex);
        m_stopping = false;
    }

    // After stop: drops the pending picture and zeroes the counters.
    void clear()
    {
        std::lock_guard lock(m_frameMutex);
        m_latest.reset();
        m_frameReady = false;
        m_stats = {};
    }

    FrameHandOverStats stats() const
    {
        std::lock_guard lock(m_frameMutex);
        return m_stats;
    }

    void setNoFrameError(const QString &text) { m_noFrameError = text; }

private:
    bool enterCallback()
    {
        std::lock_guard lock(m_callbackMutex);
        if (m_stopping)
            return false;
        ++m_activeCallbacks;
        return true;
    }

    void leaveCallback()
    {
        std::lock_guard lock(m_callbackMutex);
        --m_activeCallbacks;
        m_callbackCondition.notify_all();
    }

    // With frameMutex held.
    bool dropIfPending()
    {
        if (!m_frameReady || !m_latest)
            return false;
        ++m_stats.droppedBeforeWorker;
        return true;
    }

    mutable std::mutex m_frameMutex;
    std::condition_variable m_frameCondition;
    std::mutex m_callbackMutex;
    std::condition_variable m_callbackCondition;
    std::optional<Frame> m_latest;
    bool m_frameReady = false;
    bool m_stopping = false;
    int m_activeCallbacks = 0;
    FrameHandOverStats m_stats;
    QString m_noFrameError = QStringLiteral("The capture source did not produce a frame.");
};
