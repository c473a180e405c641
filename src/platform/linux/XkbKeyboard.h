#pragma once

#include <QList>

#include <memory>
#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon.h>

struct xcb_xkb_state_notify_event_t;

// The keyboard map and modifier state of the core keyboard, read through
// xkbcommon, translated to the neutral key codes.
class XkbKeyboard
{
public:
    XkbKeyboard();
    ~XkbKeyboard();

    // Reads the current map and state from the server; false if it cannot.
    bool load(xcb_connection_t *connection);
    bool isLoaded() const { return m_state != nullptr; }
    int32_t deviceId() const { return m_deviceId; }

    // Keycodes that give `keysym` without a shift level, or at any level
    // when no key gives it plainly.
    QList<xcb_keycode_t> keycodesForKeysym(xkb_keysym_t keysym) const;

    // The neutral key of a keycode, named by the keysym on its base level,
    // so Shift+1 stays "1"; 0 for a key the display does not name.
    int keyForKeycode(xcb_keycode_t keycode) const;

    // Ctrl, Alt, Shift and Win held or latched now, as neutral bits.
    int modifiers() const;
    void updateState(const xcb_xkb_state_notify_event_t *event);

    static int keyForKeysym(xkb_keysym_t keysym);
    static xkb_keysym_t keysymForKey(int key);

private:
    struct ContextDeleter
    {
        void operator()(xkb_context *context) const { xkb_context_unref(context); }
    };
    struct KeymapDeleter
    {
        void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    };
    struct StateDeleter
    {
        void operator()(xkb_state *state) const { xkb_state_unref(state); }
    };

    int keyOnBaseLevel(xcb_keycode_t keycode, xkb_layout_index_t layout) const;

    std::unique_ptr<xkb_context, ContextDeleter> m_context;
    std::unique_ptr<xkb_keymap, KeymapDeleter> m_keymap;
    std::unique_ptr<xkb_state, StateDeleter> m_state;
    int32_t m_deviceId = -1;
    xkb_mod_index_t m_ctrl = XKB_MOD_INVALID;
    xkb_mod_index_t m_alt = XKB_MOD_INVALID;
    xkb_mod_index_t m_shift = XKB_MOD_INVALID;
    xkb_mod_index_t m_win = XKB_MOD_INVALID;
};
