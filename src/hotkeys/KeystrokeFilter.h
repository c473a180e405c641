#pragma once

#include <QString>

// The privacy switches of the keystroke display and the text a key press
// yields under them.
struct KeystrokeFilter
{
    bool enabled = true;
    bool modifierKeys = true;
    bool functionKeys = true;
    bool navigationKeys = true;
    bool alphaNumericKeys = false;

    // The text for a key pressed while `modifiers` are held, such as
    // "Win+Ctrl+Alt+Shift+F5"; empty when the switches hide it.
    QString text(int key, int modifiers) const;

    friend bool operator==(const KeystrokeFilter &, const KeystrokeFilter &) = default;
};
