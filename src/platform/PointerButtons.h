#pragma once

#include <memory>

// Global mouse-button state, readable while no window of ours has focus.
class PointerButtons
{
public:
    enum Button { Left = 1, Right = 2, Middle = 4 };

    virtual ~PointerButtons() = default;

    // Bit mask of the buttons held now: 1 left, 2 right, 4 middle.
    virtual int buttonMask() const = 0;

    static std::unique_ptr<PointerButtons> create();
};
