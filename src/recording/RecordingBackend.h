#pragma once

#include "platform/CursorPosition.h"
#include "platform/FrameSource.h"
#include "platform/PointerButtons.h"
#include "platform/VideoWriter.h"

#include <QRect>

#include <functional>
#include <memory>

class QScreen;

// The platform pieces a recording is made of, as factories, so that tests can
// put fakes in. The worker calls the factories on its own thread.
struct RecordingBackend
{
    std::function<std::unique_ptr<FrameSource>()> frameSource = &FrameSource::create;
    std::function<std::unique_ptr<VideoWriter>()> videoWriter = &VideoWriter::create;
    std::function<std::unique_ptr<CursorPosition>()> cursorPosition = &CursorPosition::create;
    std::function<std::unique_ptr<PointerButtons>()> pointerButtons = &PointerButtons::create;
    std::function<QRect(QScreen *)> captureRect = &captureRectForScreen;

    // The whole screen in physical desktop pixels, each side even and at least
    // 2; a null rectangle for a null screen.
    static QRect captureRectForScreen(QScreen *screen);
};
