#pragma once

#include <QtGlobal>

// Frame numbering of a recording by time, not by ticks, so that lateness never
// accumulates: a tick at `elapsedMs` stands for frame (fps * elapsedMs) / 1000,
// whose slot runs from n * 1000 / fps to (n + 1) * 1000 / fps.
// A tick that does not reach a new frame number counts as a drop, and so does
// every frame number a late tick skips, except before the first frame. Only
// the skipped numbers are pictures missing from the video; they are also
// counted on their own.
//
// Ticks are aimed at the middle of the next frame's slot rather than at a
// fixed interval: a fixed 33 ms tick against 33 1/3 ms frames drifts through
// the slots and, with the jitter of a busy machine, lands twice in one slot
// and skips the next. Aimed at the middle, a tick may come half a slot late
// and still get its frame.
class FramePacer
{
public:
    explicit FramePacer(int fps = 30) { reset(fps); }

    void reset(int fps)
    {
        m_fps = fps;
        m_lastFrameIndex = -1;
        m_droppedFrames = 0;
        m_skippedFrames = 0;
    }

    // True when the tick gets a frame.
    bool admit(qint64 elapsedMs)
    {
        const qint64 target = (qint64(m_fps) * elapsedMs) / 1000;
        if (target <= m_lastFrameIndex) {
            ++m_droppedFrames;
            return false;
        }
        if (m_lastFrameIndex >= 0 && target > m_lastFrameIndex + 1) {
            m_droppedFrames += target - m_lastFrameIndex - 1;
            m_skippedFrames += target - m_lastFrameIndex - 1;
        }
        m_lastFrameIndex = target;
        return true;
    }

    // How long to wait from `elapsedMs` for the next tick: until the middle of
    // the slot after the last frame, or at once when that middle has passed
    // (a late tick still gets the slot it lands in).
    qint64 msUntilNextTick(qint64 elapsedMs) const
    {
        const qint64 current = (qint64(m_fps) * elapsedMs) / 1000;
        const qint64 next = qMax(m_lastFrameIndex + 1, current);
        // The middle, rounded up so that a tick there is never in the slot before.
        const qint64 middleMs = ((2 * next + 1) * 500 + m_fps - 1) / m_fps;
        return qMax<qint64>(0, middleMs - elapsedMs);
    }

    // A tick that came while the previous one was still being served.
    void countBusyTick() { ++m_droppedFrames; }

    qint64 lastFrameIndex() const { return m_lastFrameIndex; }
    qint64 droppedFrames() const { return m_droppedFrames; }
    qint64 skippedFrames() const { return m_skippedFrames; }
    int fps() const { return m_fps; }

private:
    int m_fps = 30;
    qint64 m_lastFrameIndex = -1;
    qint64 m_droppedFrames = 0;
    qint64 m_skippedFrames = 0;
};
