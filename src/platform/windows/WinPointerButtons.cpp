#include "platform/windows/WinPointerButtons.h"

#include <windows.h>

std::unique_ptr<PointerButtons> PointerButtons::create()
{
    return std::make_unique<WinPointerButtons>();
}

int WinPointerButtons::buttonMask() const
{
    // The high bit of the result says the button is down now.
    const auto down = [](int key) {
        return (GetAsyncKeyState(key) & 0x8000) != 0;
    };
    int mask = 0;
    if (down(VK_LBUTTON))
        mask |= Left;
    if (down(VK_RBUTTON))
        mask |= Right;
    if (down(VK_MBUTTON))
        mask |= Middle;
    return mask;
}
