#include "platform/linux/XcbPointerButtons.h"

#include <QGuiApplication>

#include <cstdlib>
#include <xcb/xcb.h>

std::unique_ptr<PointerButtons> PointerButtons::create()
{
    return std::make_unique<XcbPointerButtons>();
}

XcbPointerButtons::XcbPointerButtons()
{
    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    m_connection = x11 ? x11->connection() : nullptr;
    if (!m_connection)
        return;
    // Any window of the screen would do: the pointer's button state is global.
    const xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    if (screens.rem > 0)
        m_root = screens.data->root;
}

int XcbPointerButtons::buttonMask() const
{
    if (!m_connection || m_root == 0)
        return 0;
    xcb_query_pointer_reply_t *reply =
        xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_root), nullptr);
    if (!reply)
        return 0;
    const int mask = fromXMask(reply->mask);
    std::free(reply);
    return mask;
}

int XcbPointerButtons::fromXMask(uint16_t xMask)
{
    int mask = 0;
    if (xMask & XCB_BUTTON_MASK_1)
        mask |= Left;
    if (xMask & XCB_BUTTON_MASK_3)
        mask |= Right;
    if (xMask & XCB_BUTTON_MASK_2)
        mask |= Middle;
    return mask;
}
