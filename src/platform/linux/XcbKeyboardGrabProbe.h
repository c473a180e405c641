#pragma once

#include <xcb/xcb.h>

// Asks the X server whether another client holds an active grab of the
// keyboard (a screen locker, a password prompt) by trying to grab it for a
// moment: owner events on, the keyboard frozen while we hold it, released at
// once. The focused client sees a FocusOut/FocusIn pair of mode Grab and
// Ungrab, as for any global shortcut, and loses no key: keys typed meanwhile
// wait in the server and go to it in order. A connection of its own keeps the
// toolkit's popup grabs apart: those count as another client's.
class XcbKeyboardGrabProbe
{
public:
    XcbKeyboardGrabProbe() = default;
    ~XcbKeyboardGrabProbe();
    XcbKeyboardGrabProbe(const XcbKeyboardGrabProbe &) = delete;
    XcbKeyboardGrabProbe &operator=(const XcbKeyboardGrabProbe &) = delete;

    // False also when the question cannot be asked (no server).
    bool grabbedElsewhere();

private:
    bool connect();

    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_NONE;
    bool m_failed = false;
};
