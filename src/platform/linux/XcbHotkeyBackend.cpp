#include "platform/linux/XcbHotkeyBackend.h"

#include "hotkeys/HotkeyLogging.h"
#include "platform/linux/XcbXkb.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <cstdlib>
#include <xcb/xinput.h>

std::unique_ptr<HotkeyBackend> HotkeyBackend::create()
{
    return std::make_unique<XcbHotkeyBackend>();
}

namespace {

constexpr uint8_t badAccess = 10;

struct Free
{
    void operator()(void *pointer) const { std::free(pointer); }
};
template<typename T>
using Reply = std::unique_ptr<T, Free>;

bool isWaylandSession()
{
    return qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland"
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace

XcbHotkeyBackend::XcbHotkeyBackend(QObject *parent)
    : HotkeyBackend(parent)
{
    m_reloadTimer.setSingleShot(true);
    m_reloadTimer.setInterval(0);
    connect(&m_reloadTimer, &QTimer::timeout, this, &XcbHotkeyBackend::reloadKeyboard);

    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    if (!x11 || !x11->connection()) {
        m_reason = QStringLiteral("no X11 connection");
        return;
    }
    // Through XWayland a grab or a raw event only sees keys that go to X
    // clients, so on a Wayland session the hotkeys would silently miss.
    if (isWaylandSession()) {
        m_reason = QStringLiteral("a Wayland session gives X11 clients no global keys");
        return;
    }
    m_connection = x11->connection();
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    if (!m_keyboard.load(m_connection)) {
        m_reason = QStringLiteral("the X server's keyboard map cannot be read");
        return;
    }
    m_xkbEventBase = xcb_get_extension_data(m_connection, &xcb_xkb_id)->first_event;
    readModifierMasks();
}

XcbHotkeyBackend::~XcbHotkeyBackend()
{
    if (!m_connection)
        return;
    for (const Grab &entry : std::as_const(m_grabs))
        ungrab(entry, m_lockCombinations);
    if (m_started) {
        struct
        {
            xcb_input_event_mask_t head;
            uint32_t mask;
        } none { { XCB_INPUT_DEVICE_ALL_MASTER, 1 }, 0 };
        xcb_input_xi_select_events(m_connection, m_root, 1, &none.head);
        if (QCoreApplication::instance())
            QCoreApplication::instance()->removeNativeEventFilter(this);
    }
    xcb_flush(m_connection);
}

bool XcbHotkeyBackend::registerHotkey(int id, const KeyCombination &combination)
{
    if (!isAvailable())
        return false;
    unregisterHotkey(id);
    for (const Grab &entry : std::as_const(m_grabs)) {
        if (entry.combination == combination)
            return false;
    }
    Grab entry { combination, 0, {} };
    if (!grab(entry))
        return false;
    m_grabs.insert(id, entry);
    return true;
}

void XcbHotkeyBackend::unregisterHotkey(int id)
{
    const auto it = m_grabs.constFind(id);
    if (it == m_grabs.cend())
        return;
    ungrab(*it, m_lockCombinations);
    m_grabs.erase(it);
    xcb_flush(m_connection);
}

void XcbHotkeyBackend::start()
{
    if (!isAvailable() || m_started)
        return;
    m_started = true;
    QCoreApplication::instance()->installNativeEventFilter(this);

    // Clients that announce 2.0 miss raw events while another client holds
    // a grab. The toolkit may have announced 2.2 already, which is fine.
    const Reply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        m_connection, xcb_input_xi_query_version(m_connection, 2, 2), nullptr));
    const xcb_query_extension_reply_t *xinput = xcb_get_extension_data(m_connection, &xcb_input_id);
    if (!xinput || !xinput->present
        || (version
            && (version->major_version < 2
                || (version->major_version == 2 && version->minor_version < 2)))) {
        qCWarning(lcHotkeys) << "XcbHotkeyBackend: XInput 2.2 is missing, keys are not observed";
    } else {
        m_xinputOpcode = xinput->major_opcode;
        // Master devices only: selecting the slaves as well delivers each key twice.
        struct
        {
            xcb_input_event_mask_t head;
            uint32_t mask;
        } raw { { XCB_INPUT_DEVICE_ALL_MASTER, 1 },
                XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE };
        xcb_input_xi_select_events(m_connection, m_root, 1, &raw.head);
    }

    const uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY
        | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    const uint16_t mapParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS
        | XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_EXPLICIT_COMPONENTS
        | XCB_XKB_MAP_PART_KEY_ACTIONS | XCB_XKB_MAP_PART_VIRTUAL_MODS
        | XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    xcb_xkb_select_events(m_connection, XCB_XKB_ID_USE_CORE_KBD, events, 0, events, mapParts,
                          mapParts, nullptr);
    // A held key then repeats as presses alone, so a hotkey fires once per
    // real press however fast the presses come.
    const uint32_t detectableRepeat = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    std::free(xcb_xkb_per_client_flags_reply(
        m_connection,
        xcb_xkb_per_client_flags(m_connection, XCB_XKB_ID_USE_CORE_KBD, detectableRepeat,
                                 detectableRepeat, 0, 0, 0),
        nullptr));
    xcb_flush(m_connection);
}

bool XcbHotkeyBackend::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t" || !message)
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    const uint8_t type = event->response_type & 0x7f;
    switch (type) {
    case XCB_KEY_PRESS:
        return handleKeyPress(reinterpret_cast<const xcb_key_press_event_t *>(event));
    case XCB_KEY_RELEASE:
        return handleKeyRelease(reinterpret_cast<const xcb_key_release_event_t *>(event));
    case XCB_GE_GENERIC:
        return handleGenericEvent(reinterpret_cast<const xcb_ge_generic_event_t *>(event));
    case XCB_MAPPING_NOTIFY:
        m_reloadTimer.start();
        return false;
    default:
        if (m_xkbEventBase != 0 && type == m_xkbEventBase)
            handleXkbEvent(event);
        // The toolkit keeps its own keyboard state from the same events.
        return false;
    }
}

bool XcbHotkeyBackend::handleKeyPress(const xcb_key_press_event_t *event)
{
    if (event->event != m_root)
        return false;
    const uint16_t relevant = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | m_altMask | m_winMask;
    for (auto it = m_grabs.cbegin(); it != m_grabs.cend(); ++it) {
        if ((event->state & relevant) != it->modifiers || !it->keycodes.contains(event->detail))
            continue;
        const bool repeated = m_heldKeycode == event->detail;
        m_heldKeycode = event->detail;
        if (!repeated)
            emit hotkeyPressed(it.key());
        return true;
    }
    return false;
}

bool XcbHotkeyBackend::handleKeyRelease(const xcb_key_release_event_t *event)
{
    if (event->event != m_root)
        return false;
    if (m_heldKeycode == event->detail)
        m_heldKeycode = 0;
    return true;
}

bool XcbHotkeyBackend::handleGenericEvent(const xcb_ge_generic_event_t *event)
{
    if (m_xinputOpcode == 0 || event->extension != m_xinputOpcode)
        return false;
    const bool down = event->event_type == XCB_INPUT_RAW_KEY_PRESS;
    if (!down && event->event_type != XCB_INPUT_RAW_KEY_RELEASE)
        return false;
    const auto *raw = reinterpret_cast<const xcb_input_raw_key_press_event_t *>(event);
    const int key = m_keyboard.keyForKeycode(static_cast<xcb_keycode_t>(raw->detail));
    emit keyEvent(key, down, m_keyboard.modifiers());
    return true;
}

void XcbHotkeyBackend::handleXkbEvent(const xcb_generic_event_t *event)
{
    // Every XKB event carries its own kind in the second byte.
    const auto *state = reinterpret_cast<const xcb_xkb_state_notify_event_t *>(event);
    switch (state->xkbType) {
    case XCB_XKB_STATE_NOTIFY:
        m_keyboard.updateState(state);
        break;
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
        // Typing on another keyboard sends this too; only new keycodes matter.
        if (reinterpret_cast<const xcb_xkb_new_keyboard_notify_event_t *>(event)->changed
            & XCB_XKB_NKN_DETAIL_KEYCODES)
            m_reloadTimer.start();
        break;
    case XCB_XKB_MAP_NOTIFY:
        m_reloadTimer.start();
        break;
    default:
        break;
    }
}

void XcbHotkeyBackend::reloadKeyboard()
{
    const QList<uint16_t> oldLocks = m_lockCombinations;
    if (!m_keyboard.load(m_connection)) {
        qCWarning(lcHotkeys) << "XcbHotkeyBackend: the new keyboard map cannot be read";
        return;
    }
    readModifierMasks();
    const bool locksChanged = m_lockCombinations != oldLocks;
    int renewed = 0;
    for (auto it = m_grabs.begin(); it != m_grabs.end(); ++it) {
        const uint16_t modifiers = modifierMask(it->combination.modifiers);
        const QList<xcb_keycode_t> keycodes =
            m_keyboard.keycodesForKeysym(XkbKeyboard::keysymForKey(it->combination.key));
        // A grab the change does not touch stays in place: while it is being
        // renewed, a press of its key would slip through to the focused window.
        if (!locksChanged && modifiers == it->modifiers && keycodes == it->keycodes)
            continue;
        ungrab(*it, oldLocks);
        if (!grab(*it))
            qCWarning(lcHotkeys) << "XcbHotkeyBackend: hotkey" << it.key()
                                 << "lost after a keyboard change";
        ++renewed;
    }
    if (renewed > 0)
        qCDebug(lcHotkeys) << "XcbHotkeyBackend: grabs renewed for a new keyboard map:" << renewed;
}

void XcbHotkeyBackend::readModifierMasks()
{
    const Reply<xcb_get_modifier_mapping_reply_t> mapping(xcb_get_modifier_mapping_reply(
        m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
    const auto maskOf = [&](std::initializer_list<xkb_keysym_t> keysyms) -> uint16_t {
        if (!mapping)
            return 0;
        const xcb_keycode_t *codes = xcb_get_modifier_mapping_keycodes(mapping.get());
        const int perModifier = mapping->keycodes_per_modifier;
        for (xkb_keysym_t keysym : keysyms) {
            const QList<xcb_keycode_t> keycodes = m_keyboard.keycodesForKeysym(keysym);
            for (int modifier = 0; modifier < 8; ++modifier) {
                for (int i = 0; i < perModifier; ++i) {
                    const xcb_keycode_t code = codes[modifier * perModifier + i];
                    if (code != 0 && keycodes.contains(code))
                        return static_cast<uint16_t>(1 << modifier);
                }
            }
        }
        return 0;
    };

    const uint16_t alt = maskOf({ XKB_KEY_Alt_L, XKB_KEY_Alt_R, XKB_KEY_Meta_L });
    const uint16_t win = maskOf({ XKB_KEY_Super_L, XKB_KEY_Super_R });
    m_altMask = alt ? alt : uint16_t(XCB_MOD_MASK_1);
    m_winMask = win ? win : uint16_t(XCB_MOD_MASK_4);

    // NumLock is wherever the modifier map puts it, which is not always Mod2.
    QList<uint16_t> locks { XCB_MOD_MASK_LOCK };
    for (uint16_t lock : { maskOf({ XKB_KEY_Num_Lock }), maskOf({ XKB_KEY_Scroll_Lock }) }) {
        if (lock != 0 && !locks.contains(lock) && lock != m_altMask && lock != m_winMask)
            locks.append(lock);
    }
    m_lockCombinations.clear();
    for (int subset = 0; subset < (1 << locks.size()); ++subset) {
        uint16_t combination = 0;
        for (int i = 0; i < locks.size(); ++i) {
            if (subset & (1 << i))
                combination |= locks.at(i);
        }
        m_lockCombinations.append(combination);
    }
}

uint16_t XcbHotkeyBackend::modifierMask(int modifiers) const
{
    uint16_t mask = 0;
    if (modifiers & KeyModifier::Ctrl)
        mask |= XCB_MOD_MASK_CONTROL;
    if (modifiers & KeyModifier::Shift)
        mask |= XCB_MOD_MASK_SHIFT;
    if (modifiers & KeyModifier::Alt)
        mask |= m_altMask;
    if (modifiers & KeyModifier::Win)
        mask |= m_winMask;
    return mask;
}

bool XcbHotkeyBackend::grab(Grab &entry)
{
    entry.modifiers = modifierMask(entry.combination.modifiers);
    entry.keycodes = m_keyboard.keycodesForKeysym(XkbKeyboard::keysymForKey(entry.combination.key));
    if (entry.keycodes.isEmpty()) {
        qCInfo(lcHotkeys) << "XcbHotkeyBackend: no key of this keyboard gives key"
                          << entry.combination.key;
        return false;
    }

    QList<xcb_void_cookie_t> cookies;
    for (xcb_keycode_t keycode : std::as_const(entry.keycodes)) {
        for (uint16_t locks : std::as_const(m_lockCombinations)) {
            cookies.append(xcb_grab_key_checked(m_connection, 0, m_root, entry.modifiers | locks,
                                                keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        }
    }
    bool refused = false;
    for (const xcb_void_cookie_t &cookie : std::as_const(cookies)) {
        const Reply<xcb_generic_error_t> error(xcb_request_check(m_connection, cookie));
        if (!error)
            continue;
        refused = true;
        if (error->error_code != badAccess)
            qCWarning(lcHotkeys) << "XcbHotkeyBackend: grab failed with X error"
                                 << error->error_code;
    }
    if (refused) {
        // Releasing what we did get leaves the other client's grab alone.
        ungrab(entry, m_lockCombinations);
        xcb_flush(m_connection);
    }
    return !refused;
}

void XcbHotkeyBackend::ungrab(const Grab &entry, const QList<uint16_t> &lockCombinations)
{
    for (xcb_keycode_t keycode : entry.keycodes) {
        for (uint16_t locks : lockCombinations)
            xcb_ungrab_key(m_connection, keycode, m_root, entry.modifiers | locks);
    }
}
