#pragma once

#include <QRegion>

#include <memory>
#include <optional>

class QWindow;

// Per-window mouse pass-through and capture exclusion, the two native window
// operations the click-through loop needs.
class WindowPassThrough
{
public:
    virtual ~WindowPassThrough() = default;

    // Makes the window let the mouse through (true) or take it (false).
    // Implementations write to the window system only when the state must
    // change, and keep the state across resize, hide/show and re-creation.
    virtual void setPassThrough(QWindow *window, bool passThrough) = 0;

    // Makes the window take the mouse only inside `area`, in its own logical
    // coordinates, where the platform can shape a window's input, so that
    // the area holds whatever the pointer does meanwhile. False where it
    // cannot; the caller then decides for the whole window.
    virtual bool setInputArea([[maybe_unused]] QWindow *window,
                              [[maybe_unused]] const QRegion &area)
    {
        return false;
    }

    // Keeps the window out of screen grabs where the platform can.
    virtual void excludeFromCapture(QWindow *window) = 0;

    // Limits what is seen of the window to `area` (window coordinates), or
    // shows it whole again; what lies outside takes no clicks either. Only a
    // window system that may run without composition needs it.
    virtual void setVisibleArea(QWindow *window, const std::optional<QRegion> &area)
    {
        Q_UNUSED(window)
        Q_UNUSED(area)
    }

    static std::unique_ptr<WindowPassThrough> create();
};
