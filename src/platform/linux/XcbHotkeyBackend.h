#pragma once

#include "platform/HotkeyBackend.h"
#include "platform/linux/XcbKeyboardGrabProbe.h"
#include "platform/linux/XkbKeyboard.h"

#include <QAbstractNativeEventFilter>
#include <QHash>
#include <QList>
#include <QTimer>

#include <xcb/xcb.h>

// Global keys on X11. A hotkey is a passive grab on the root window for
// every keycode of its keysym and every combination of the lock modifiers;
// the server refusing any of them with BadAccess means another client holds
// it. Every key is observed through XInput 2 raw events, which never take a
// key from the focused client; the modifier state comes from XKB.
class XcbHotkeyBackend : public HotkeyBackend, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    // Uses the application's X connection; without one, or on a Wayland
    // session, the backend reports itself unavailable and does nothing.
    explicit XcbHotkeyBackend(QObject *parent = nullptr);
    ~XcbHotkeyBackend() override;

    bool isAvailable() const override { return m_reason.isEmpty(); }
    QString unavailableReason() const override { return m_reason; }
    bool registerHotkey(int id, const KeyCombination &combination) override;
    void unregisterHotkey(int id) override;
    void start() override;
    bool keyboardGrabbedElsewhere() override { return m_grabProbe.grabbedElsewhere(); }

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    struct Grab
    {
        KeyCombination combination;
        uint16_t modifiers = 0;
        QList<xcb_keycode_t> keycodes;
    };

    void readModifierMasks();
    bool grab(Grab &grab);
    void ungrab(const Grab &grab, const QList<uint16_t> &lockCombinations);
    void reloadKeyboard();
    uint16_t modifierMask(int modifiers) const;
    bool handleKeyPress(const xcb_key_press_event_t *event);
    bool handleKeyRelease(const xcb_key_release_event_t *event);
    bool handleGenericEvent(const xcb_ge_generic_event_t *event);
    void handleXkbEvent(const xcb_generic_event_t *event);

    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_NONE;
    QString m_reason;
    XkbKeyboard m_keyboard;
    uint8_t m_xkbEventBase = 0;
    uint8_t m_xinputOpcode = 0;
    bool m_started = false;
    QHash<int, Grab> m_grabs;
    uint16_t m_altMask = XCB_MOD_MASK_1;
    uint16_t m_winMask = XCB_MOD_MASK_4;
    QList<uint16_t> m_lockCombinations;
    // A hotkey fires once per press, not again while the key repeats.
    xcb_keycode_t m_heldKeycode = 0;
    QTimer m_reloadTimer;
    XcbKeyboardGrabProbe m_grabProbe;
};
