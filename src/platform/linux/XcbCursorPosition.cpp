#include "platform/linux/XcbCursorPosition.h"

#include <cstdlib>
#include <xcb/xcb.h>

std::unique_ptr<CursorPosition> CursorPosition::create()
{
    return std::make_unique<XcbCursorPosition>();
}

XcbCursorPosition::XcbCursorPosition()
{
    int screenNumber = 0;
    m_connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(m_connection))
        return;
    xcb_screen_iterator_t it = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; i < screenNumber && it.rem; ++i)
        xcb_screen_next(&it);
    if (it.data)
        m_root = it.data->root;
}

XcbCursorPosition::~XcbCursorPosition()
{
    xcb_disconnect(m_connection);
}

std::optional<QPoint> XcbCursorPosition::position() const
{
    if (!m_root || xcb_connection_has_error(m_connection))
        return std::nullopt;
    xcb_query_pointer_reply_t *reply =
        xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_root), nullptr);
    if (!reply)
        return std::nullopt;
    const QPoint point(reply->root_x, reply->root_y);
    std::free(reply);
    return point;
}
