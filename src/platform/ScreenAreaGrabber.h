#pragma once

#include <QImage>
#include <QRect>

#include <memory>

class QScreen;
class QWindow;

// Reads the pixels of a small screen area as they would look without one of
// our own windows, so that a lens drawn in that window never magnifies itself.
class ScreenAreaGrabber
{
public:
    virtual ~ScreenAreaGrabber() = default;

    // `area` is in global logical coordinates and lies inside `screen`.
    // `leftOut` is kept out of the picture where the platform can do that;
    // a null image means the grab failed.
    virtual QImage grab(QScreen *screen, const QRect &area, QWindow *leftOut) = 0;

    static std::unique_ptr<ScreenAreaGrabber> create();
};
