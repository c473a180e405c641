#pragma once

#include <QSize>

#include <memory>

// One picture on its way from the frame source to the writer. A frame lives
// either in memory (bits, bytesPerLine; four bytes per pixel, B G R x) or on
// the GPU (texture); `owner` keeps its storage alive, so a writer that still
// needs the pixels after writeFrame returns keeps a copy of it.
struct CapturedFrame
{
    QSize size;
    const unsigned char *bits = nullptr;
    int bytesPerLine = 0;
    void *texture = nullptr;
    std::shared_ptr<const void> owner;

    bool isValid() const
    {
        return !size.isEmpty() && ((bits && bytesPerLine >= 4 * size.width()) || texture);
    }
};

// What a frame source shares with the writer of its frames: the recording
// frame size and, where frames are GPU textures, the device they live on.
struct CaptureSession
{
    QSize frameSize;
    std::shared_ptr<void> device;
};
