#include "XTestKeyboard.h"

#include <algorithm>
#include <cstdlib>
#include <xcb/xtest.h>

XTestKeyboard::XTestKeyboard()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return;
    }
    m_connection = connection;
    const xcb_setup_t *setup = xcb_get_setup(m_connection);
    m_root = xcb_setup_roots_iterator(setup).data->root;
    m_minKeycode = setup->min_keycode;
    const int count = setup->max_keycode - setup->min_keycode + 1;
    xcb_get_keyboard_mapping_reply_t *mapping = xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, m_minKeycode, count), nullptr);
    if (mapping) {
        m_perKeycode = mapping->keysyms_per_keycode;
        const xcb_keysym_t *syms = xcb_get_keyboard_mapping_keysyms(mapping);
        m_keysyms =
            QList<xkb_keysym_t>(syms, syms + xcb_get_keyboard_mapping_keysyms_length(mapping));
        std::free(mapping);
    }
}

XTestKeyboard::~XTestKeyboard()
{
    if (m_connection)
        xcb_disconnect(m_connection);
}

xcb_keycode_t XTestKeyboard::keycode(xkb_keysym_t keysym) const
{
    // The unshifted column first, so that "1" is the key of 1, not of "!".
    for (int column = 0; column < m_perKeycode; ++column) {
        for (qsizetype i = column; i < m_keysyms.size(); i += m_perKeycode) {
            if (m_keysyms.at(i) == keysym)
                return static_cast<xcb_keycode_t>(m_minKeycode + i / m_perKeycode);
        }
    }
    return 0;
}

xcb_keycode_t XTestKeyboard::spareKeycode() const
{
    for (qsizetype i = 0; i + m_perKeycode <= m_keysyms.size(); i += m_perKeycode) {
        const auto first = m_keysyms.cbegin() + i;
        if (std::all_of(first, first + m_perKeycode, [](xkb_keysym_t s) { return s == 0; }))
            return static_cast<xcb_keycode_t>(m_minKeycode + i / m_perKeycode);
    }
    return 0;
}

void XTestKeyboard::tapKeycode(xcb_keycode_t keycode)
{
    xcb_test_fake_input(m_connection, XCB_KEY_PRESS, keycode, XCB_CURRENT_TIME, m_root, 0, 0, 0);
    xcb_test_fake_input(m_connection, XCB_KEY_RELEASE, keycode, XCB_CURRENT_TIME, m_root, 0, 0, 0);
    sync();
}

void XTestKeyboard::fake(uint8_t type, xkb_keysym_t keysym)
{
    xcb_test_fake_input(m_connection, type, keycode(keysym), XCB_CURRENT_TIME, m_root, 0, 0, 0);
}

void XTestKeyboard::press(xkb_keysym_t keysym)
{
    fake(XCB_KEY_PRESS, keysym);
    sync();
}

void XTestKeyboard::release(xkb_keysym_t keysym)
{
    fake(XCB_KEY_RELEASE, keysym);
    sync();
}

void XTestKeyboard::tap(const QList<xkb_keysym_t> &keysyms)
{
    for (xkb_keysym_t keysym : keysyms)
        fake(XCB_KEY_PRESS, keysym);
    for (auto it = keysyms.crbegin(); it != keysyms.crend(); ++it)
        fake(XCB_KEY_RELEASE, *it);
    sync();
}

void XTestKeyboard::sync()
{
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}
