#include "platform/linux/XcbKeyboardGrabProbe.h"

#include "hotkeys/HotkeyLogging.h"

#include <cstdlib>

XcbKeyboardGrabProbe::~XcbKeyboardGrabProbe()
{
    if (m_connection)
        xcb_disconnect(m_connection);
}

bool XcbKeyboardGrabProbe::grabbedElsewhere()
{
    if (!m_connection && !connect())
        return false;
    xcb_grab_keyboard_reply_t *reply =
        xcb_grab_keyboard_reply(m_connection,
                                xcb_grab_keyboard(m_connection, 1, m_root, XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC),
                                nullptr);
    if (!reply)
        return false;
    const uint8_t status = reply->status;
    std::free(reply);
    if (status == XCB_GRAB_STATUS_SUCCESS) {
        xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
        xcb_flush(m_connection);
        return false;
    }
    // Frozen: another client's synchronous grab holds the keyboard still.
    return status == XCB_GRAB_STATUS_ALREADY_GRABBED || status == XCB_GRAB_STATUS_FROZEN;
}

bool XcbKeyboardGrabProbe::connect()
{
    if (m_failed)
        return false;
    int screenNumber = 0;
    xcb_connection_t *connection = xcb_connect(nullptr, &screenNumber);
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber && screens.rem; ++i)
        xcb_screen_next(&screens);
    if (xcb_connection_has_error(connection) || !screens.data) {
        xcb_disconnect(connection);
        m_failed = true;
        qCWarning(lcHotkeys) << "XcbKeyboardGrabProbe: no second X connection; keys typed into"
                             << "a locker or a password prompt cannot be told apart";
        return false;
    }
    m_connection = connection;
    m_root = screens.data->root;
    return true;
}
