#pragma once

#include <QtGlobal>

// Frame numbering of a recording by time, not by ticks, so that lateness never
// accumulates: a tick at `elapsedMs` stands for frame (fps * elapsedMs) / 1000.
// A tick that does not reach a new frame number counts as a drop, and so does
// every frame number a late tick skips, except before the first frame. Only
// the skipped numbers are pictures missing from the video; they are also
// counted on their own.
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
