#pragma once

#include <QList>

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon.h>

// Presses keys through XTest on a connection of its own, as a user would.
class XTestKeyboard
{
public:
    XTestKeyboard();
    ~XTestKeyboard();

    bool isValid() const { return m_connection != nullptr; }
    xcb_connection_t *connection() const { return m_connection; }
    xcb_window_t root() const { return m_root; }

    xcb_keycode_t keycode(xkb_keysym_t keysym) const;
    // A keycode the keyboard map leaves empty, as the map was at creation.
    xcb_keycode_t spareKeycode() const;
    void tapKeycode(xcb_keycode_t keycode);
    // Presses the keys in order and releases them in reverse, then waits
    // until the server has handled all of it.
    void tap(const QList<xkb_keysym_t> &keysyms);
    void press(xkb_keysym_t keysym);
    void release(xkb_keysym_t keysym);
    void sync();

private:
    void fake(uint8_t type, xkb_keysym_t keysym);

    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_NONE;
    QList<xkb_keysym_t> m_keysyms;
    int m_perKeycode = 0;
    xcb_keycode_t m_minKeycode = 0;
};
