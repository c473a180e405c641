#pragma once

#include "platform/PointerButtons.h"

// GetAsyncKeyState reads the buttons for any window, focused or not.
class WinPointerButtons : public PointerButtons
{
public:
    int buttonMask() const override;
};
