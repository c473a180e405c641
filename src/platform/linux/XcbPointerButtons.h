#pragma once

#include "platform/PointerButtons.h"

#include <cstdint>

struct xcb_connection_t;

// Reads the buttons from the server's pointer state, which is global: it needs
// neither focus nor a grab, so the poll works while another program is active.
class XcbPointerButtons : public PointerButtons
{
public:
    XcbPointerButtons();

    int buttonMask() const override;

    // Maps the key-and-button mask of the X protocol to the mask above.
    static int fromXMask(uint16_t xMask);

private:
    xcb_connection_t *m_connection = nullptr;
    uint32_t m_root = 0;
};
