#pragma once

#include "platform/PointerActivity.h"

#include <cstdint>
#include <memory>

class QSocketNotifier;

typedef struct xcb_connection_t xcb_connection_t;

// Watches the X server's raw pointer events on a connection of its own, so
// that reading them never wakes the toolkit's event thread. Raw events reach
// the root window whoever has focus or a grab; a pointer that no device moved
// (a warp by another program) shows up at the poll's periodic full read.
class XcbPointerActivity : public PointerActivity
{
public:
    XcbPointerActivity();
    ~XcbPointerActivity() override;
    XcbPointerActivity(const XcbPointerActivity &) = delete;
    XcbPointerActivity &operator=(const XcbPointerActivity &) = delete;

    bool takeActivity() override;
    int pressedButtons() const override { return m_pressed; }
    bool wakeOnInput(std::function<void()> onInput) override;

private:
    xcb_connection_t *m_connection = nullptr;
    // False when the server offers no raw events: then every call says "maybe".
    bool m_watching = false;
    uint8_t m_inputOpcode = 0;
    int m_pressed = 0;
    // Readable when events came in; on only while the poll rests.
    std::unique_ptr<QSocketNotifier> m_wakeUp;
    std::function<void()> m_onInput;
};
