#include "platform/linux/XcbKeyboardFocus.h"

#include <QGuiApplication>

#include <cstdlib>
#include <xcb/xcb.h>

std::unique_ptr<KeyboardFocus> KeyboardFocus::create()
{
    return std::make_unique<XcbKeyboardFocus>();
}

XcbKeyboardFocus::XcbKeyboardFocus()
{
    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    m_connection = x11 ? x11->connection() : nullptr;
}

uint32_t XcbKeyboardFocus::currentFocus() const
{
    xcb_get_input_focus_reply_t *reply =
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr);
    const uint32_t focus = reply ? reply->focus : XCB_NONE;
    std::free(reply);
    return focus;
}

void XcbKeyboardFocus::lendTo(QWindow *window)
{
    if (!window)
        return;
    if (!m_connection) {
        window->requestActivate();
        return;
    }
    if (m_borrower != window) {
        const uint32_t focus = currentFocus();
        m_previous = focus == window->winId() ? m_previous : focus;
    }
    m_borrower = window;
    // At the server's present time, not at the toolkit's last event: the
    // focus handed back meanwhile is newer, and the server would refuse an
    // older request.
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, uint32_t(window->winId()),
                        XCB_CURRENT_TIME);
    xcb_flush(m_connection);
}

void XcbKeyboardFocus::giveBack()
{
    QWindow *borrower = m_borrower;
    m_borrower = nullptr;
    const uint32_t previous = m_previous;
    m_previous = 0;
    // PointerRoot and None are no windows to return to; and where the
    // presenter has moved on to another window meanwhile, that one stays.
    if (!m_connection || !borrower || previous <= XCB_INPUT_FOCUS_POINTER_ROOT
        || currentFocus() != borrower->winId())
        return;
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, previous, XCB_CURRENT_TIME);
    xcb_flush(m_connection);
}
