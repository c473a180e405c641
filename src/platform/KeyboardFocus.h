#pragma once

#include <memory>

class QWindow;

// The desktop's keyboard focus, lent to one of our windows while a dialog
// needs the keys, then handed back to the window that had it, so that the
// presenter's application types on afterwards.
class KeyboardFocus
{
public:
    virtual ~KeyboardFocus() = default;

    // Gives `window` the keyboard and remembers who had it.
    virtual void lendTo(QWindow *window) = 0;
    // Hands the keyboard back, if our window still holds it.
    virtual void giveBack() = 0;

    static std::unique_ptr<KeyboardFocus> create();
};
