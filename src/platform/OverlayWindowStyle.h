#pragma once

#include <memory>

class QWindow;

// Native set-up of the overlay windows beyond Qt's flags: kept out of the
// window manager's stacking, taskbar and pager, above a compositor's
// full-screen shortcut, and away from the keyboard focus. Holds across
// re-creation of the native window.
class OverlayWindowStyle
{
public:
    enum class Focus {
        Never, // drawing overlays: the user's application keeps the keyboard
        OnRequest // the controls window: only when it asks, for a dialog or text field
    };

    virtual ~OverlayWindowStyle() = default;

    // Before the window is first shown.
    virtual void apply(QWindow *window, Focus focus) = 0;

    static std::unique_ptr<OverlayWindowStyle> create();
};
