#pragma once

// Keys and modifiers in a platform-neutral form. The key codes share their
// values with the Windows virtual keys and the modifier bits with the
// Windows hotkey flags, so the Windows layer passes its codes through
// unchanged and every other platform maps onto them.
namespace KeyCode {

enum : int {
    None = 0,
    Backspace = 0x08,
    Tab = 0x09,
    Enter = 0x0D,
    Shift = 0x10,
    Control = 0x11,
    Alt = 0x12,
    Escape = 0x1B,
    Space = 0x20,
    PageUp = 0x21,
    PageDown = 0x22,
    End = 0x23,
    Home = 0x24,
    Left = 0x25,
    Up = 0x26,
    Right = 0x27,
    Down = 0x28,
    Insert = 0x2D,
    Delete = 0x2E,
    Digit0 = 0x30,
    Digit9 = 0x39,
    LetterA = 0x41,
    LetterZ = 0x5A,
    LeftWin = 0x5B,
    RightWin = 0x5C,
    F1 = 0x70,
    F24 = 0x87,
    LeftShift = 0xA0,
    RightShift = 0xA1,
    LeftControl = 0xA2,
    RightControl = 0xA3,
    LeftAlt = 0xA4,
    RightAlt = 0xA5,
};

} // namespace KeyCode

namespace KeyModifier {

enum : int {
    None = 0,
    Alt = 0x1,
    Ctrl = 0x2,
    Shift = 0x4,
    Win = 0x8,
};

} // namespace KeyModifier

// One key with the modifiers that must be held, as a hotkey is registered.
struct KeyCombination
{
    int modifiers = KeyModifier::None;
    int key = KeyCode::None;

    friend bool operator==(const KeyCombination &, const KeyCombination &) = default;
};
