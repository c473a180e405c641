#pragma once

#include "platform/ScreenAreaGrabber.h"

#include <xcb/xcb.h>

// Composes the area from the off-screen pixmaps that the compositing manager
// keeps for every top-level window, bottom to top, stopping below our window.
// A plain grab of the root would contain the lens itself: X11 has no way to
// keep a window out of a screen grab.
class XcbCompositeGrabber final : public ScreenAreaGrabber
{
public:
    XcbCompositeGrabber();

    QImage grab(QScreen *screen, const QRect &area, QWindow *above) override;

private:
    QImage composeBelow(const QRect &nativeArea, xcb_window_t stopAt);
    xcb_window_t topLevelOf(xcb_window_t window) const;
    QImage plainGrab(QScreen *screen, const QRect &area);

    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_NONE;
    bool m_compositeAvailable = false;
    bool m_warnedPlainGrab = false;
};
