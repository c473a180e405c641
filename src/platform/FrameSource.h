#pragma once

#include "platform/CapturedFrame.h"

#include <QRect>
#include <QString>

#include <functional>
#include <memory>

// The screen side of a recording: a capture session on the display of a
// rectangle that holds the newest picture until the worker asks for it.
// Every call comes from the recording worker's thread.
class FrameSource
{
public:
    using Consumer = std::function<bool(const CapturedFrame &frame)>;

    virtual ~FrameSource() = default;

    // Makes sure a session runs for `rect` (physical desktop pixels) and
    // reports the recording frame size, even in both directions.
    virtual bool ensureSession(const QRect &rect, CaptureSession *session, QString *error) = 0;

    // Waits for the next new picture and calls the consumer with it on this
    // thread; returns the consumer's result. A picture is delivered once.
    virtual bool deliverFrame(const QRect &rect, const Consumer &consumer, QString *error) = 0;

    // Ends the session; safe to call without one.
    virtual void stop() = 0;

    static std::unique_ptr<FrameSource> create();
};
