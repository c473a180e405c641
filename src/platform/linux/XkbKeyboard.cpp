#include "platform/linux/XkbKeyboard.h"

#include "hotkeys/KeyCode.h"
#include "platform/linux/XcbXkb.h"

#include <algorithm>
#include <xkbcommon/xkbcommon-x11.h>

XkbKeyboard::XkbKeyboard()
    : m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
}

XkbKeyboard::~XkbKeyboard() = default;

bool XkbKeyboard::load(xcb_connection_t *connection)
{
    m_state.reset();
    m_keymap.reset();
    if (!m_context)
        return false;
    if (!xkb_x11_setup_xkb_extension(
            connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr))
        return false;
    m_deviceId = xkb_x11_get_core_keyboard_device_id(connection);
    if (m_deviceId < 0)
        return false;
    m_keymap.reset(xkb_x11_keymap_new_from_device(m_context.get(), connection, m_deviceId,
                                                  XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!m_keymap)
        return false;
    m_state.reset(xkb_x11_state_new_from_device(m_keymap.get(), connection, m_deviceId));
    if (!m_state)
        return false;
    m_ctrl = xkb_keymap_mod_get_index(m_keymap.get(), XKB_MOD_NAME_CTRL);
    m_alt = xkb_keymap_mod_get_index(m_keymap.get(), XKB_MOD_NAME_ALT);
    m_shift = xkb_keymap_mod_get_index(m_keymap.get(), XKB_MOD_NAME_SHIFT);
    m_win = xkb_keymap_mod_get_index(m_keymap.get(), XKB_MOD_NAME_LOGO);
    return true;
}

QList<xcb_keycode_t> XkbKeyboard::keycodesForKeysym(xkb_keysym_t keysym) const
{
    QList<xcb_keycode_t> plain;
    QList<xcb_keycode_t> shifted;
    if (!m_keymap || keysym == XKB_KEY_NoSymbol)
        return plain;
    const xkb_keycode_t first = xkb_keymap_min_keycode(m_keymap.get());
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(m_keymap.get()), 255);
    for (xkb_keycode_t keycode = first; keycode <= last; ++keycode) {
        const xkb_level_index_t levels = xkb_keymap_num_levels_for_key(m_keymap.get(), keycode, 0);
        for (xkb_level_index_t level = 0; level < levels; ++level) {
            const xkb_keysym_t *syms = nullptr;
            const int count =
                xkb_keymap_key_get_syms_by_level(m_keymap.get(), keycode, 0, level, &syms);
            if (std::find(syms, syms + count, keysym) != syms + count) {
                (level == 0 ? plain : shifted).append(static_cast<xcb_keycode_t>(keycode));
                break;
            }
        }
    }
    return plain.isEmpty() ? shifted : plain;
}

int XkbKeyboard::keyOnBaseLevel(xcb_keycode_t keycode, xkb_layout_index_t layout) const
{
    const xkb_keysym_t *syms = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(m_keymap.get(), keycode, layout, 0, &syms);
    return count > 0 ? keyForKeysym(syms[0]) : KeyCode::None;
}

int XkbKeyboard::keyForKeycode(xcb_keycode_t keycode) const
{
    if (!m_state)
        return KeyCode::None;
    const xkb_layout_index_t layout = xkb_state_key_get_layout(m_state.get(), keycode);
    const int key = layout == XKB_LAYOUT_INVALID ? KeyCode::None : keyOnBaseLevel(keycode, layout);
    // A key of a non-Latin layout is named by the first layout, as the
    // system's own virtual keys would name it.
    return key != KeyCode::None ? key : keyOnBaseLevel(keycode, 0);
}

int XkbKeyboard::modifiers() const
{
    if (!m_state)
        return KeyModifier::None;
    const auto held = [this](xkb_mod_index_t index) {
        return index != XKB_MOD_INVALID
            && xkb_state_mod_index_is_active(m_state.get(), index,
                                             static_cast<xkb_state_component>(
                                                 XKB_STATE_MODS_DEPRESSED | XKB_STATE_MODS_LATCHED))
            > 0;
    };
    int result = KeyModifier::None;
    if (held(m_ctrl))
        result |= KeyModifier::Ctrl;
    if (held(m_alt))
        result |= KeyModifier::Alt;
    if (held(m_shift))
        result |= KeyModifier::Shift;
    if (held(m_win))
        result |= KeyModifier::Win;
    return result;
}

void XkbKeyboard::updateState(const xcb_xkb_state_notify_event_t *event)
{
    if (!m_state || event->deviceID != m_deviceId)
        return;
    xkb_state_update_mask(m_state.get(), event->baseMods, event->latchedMods, event->lockedMods,
                          static_cast<xkb_layout_index_t>(event->baseGroup),
                          static_cast<xkb_layout_index_t>(event->latchedGroup), event->lockedGroup);
}

int XkbKeyboard::keyForKeysym(xkb_keysym_t keysym)
{
    if (keysym >= XKB_KEY_a && keysym <= XKB_KEY_z)
        return KeyCode::LetterA + static_cast<int>(keysym - XKB_KEY_a);
    if (keysym >= XKB_KEY_A && keysym <= XKB_KEY_Z)
        return KeyCode::LetterA + static_cast<int>(keysym - XKB_KEY_A);
    if (keysym >= XKB_KEY_0 && keysym <= XKB_KEY_9)
        return KeyCode::Digit0 + static_cast<int>(keysym - XKB_KEY_0);
    if (keysym >= XKB_KEY_F1 && keysym <= XKB_KEY_F24)
        return KeyCode::F1 + static_cast<int>(keysym - XKB_KEY_F1);
    switch (keysym) {
    case XKB_KEY_BackSpace:
        return KeyCode::Backspace;
    case XKB_KEY_Tab:
    case XKB_KEY_ISO_Left_Tab:
        return KeyCode::Tab;
    case XKB_KEY_Return:
    case XKB_KEY_KP_Enter:
        return KeyCode::Enter;
    case XKB_KEY_Shift_L:
        return KeyCode::LeftShift;
    case XKB_KEY_Shift_R:
        return KeyCode::RightShift;
    case XKB_KEY_Control_L:
        return KeyCode::LeftControl;
    case XKB_KEY_Control_R:
        return KeyCode::RightControl;
    case XKB_KEY_Alt_L:
    case XKB_KEY_Meta_L:
        return KeyCode::LeftAlt;
    case XKB_KEY_Alt_R:
    case XKB_KEY_Meta_R:
    case XKB_KEY_ISO_Level3_Shift:
        return KeyCode::RightAlt;
    case XKB_KEY_Super_L:
        return KeyCode::LeftWin;
    case XKB_KEY_Super_R:
        return KeyCode::RightWin;
    case XKB_KEY_Escape:
        return KeyCode::Escape;
    case XKB_KEY_space:
        return KeyCode::Space;
    case XKB_KEY_Prior:
        return KeyCode::PageUp;
    case XKB_KEY_Next:
        return KeyCode::PageDown;
    case XKB_KEY_End:
        return KeyCode::End;
    case XKB_KEY_Home:
        return KeyCode::Home;
    case XKB_KEY_Left:
        return KeyCode::Left;
    case XKB_KEY_Up:
        return KeyCode::Up;
    case XKB_KEY_Right:
        return KeyCode::Right;
    case XKB_KEY_Down:
        return KeyCode::Down;
    case XKB_KEY_Insert:
        return KeyCode::Insert;
    case XKB_KEY_Delete:
        return KeyCode::Delete;
    default:
        return KeyCode::None;
    }
}

xkb_keysym_t XkbKeyboard::keysymForKey(int key)
{
    if (key >= KeyCode::LetterA && key <= KeyCode::LetterZ)
        return XKB_KEY_a + static_cast<xkb_keysym_t>(key - KeyCode::LetterA);
    if (key >= KeyCode::Digit0 && key <= KeyCode::Digit9)
        return XKB_KEY_0 + static_cast<xkb_keysym_t>(key - KeyCode::Digit0);
    if (key >= KeyCode::F1 && key <= KeyCode::F24)
        return XKB_KEY_F1 + static_cast<xkb_keysym_t>(key - KeyCode::F1);
    if (key == KeyCode::Escape)
        return XKB_KEY_Escape;
    return XKB_KEY_NoSymbol;
}
