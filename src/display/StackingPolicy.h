#pragma once

#include <QList>
#include <QRect>

#include <cstdint>

// One top-level window of the desktop as the window system lists it.
struct StackedWindow
{
    uint32_t id = 0;
    bool viewable = false;
    // Stacked by its owner, not by the window manager: lockers, menus,
    // tooltips, notifications, and the program's own overlays. A window
    // manager's frame around an application is ordinary, even where the
    // frame itself is override-redirect, as i3 makes them.
    bool overrideRedirect = false;
    // Made by this program (its overlays, but also its own menus).
    bool fromThisProgram = false;
};

// Puts `window` directly above `sibling`, or directly below it.
struct RestackStep
{
    uint32_t window = 0;
    uint32_t sibling = 0;
    bool below = false;

    bool operator==(const RestackStep &) const = default;
};

// Where the program's windows stand among the others. They go directly above
// the top-most ordinary (managed) window, in their own order, and never above
// another program's override-redirect window that came later (a screen
// locker, a menu, a tooltip), as X11 convention has it. An ordinary window
// raised above such a window (i3 and clients without a window manager raise
// so) is out of reach until it goes.
namespace StackingPolicy {

// The steps that bring the viewable ones of `ours` (wanted order, bottom to
// top) into place in `bottomToTop`; none when they already stand in that
// order above every ordinary window they may reach and below every window of
// `later`, the other programs' override-redirect windows that came later.
QList<RestackStep> restack(const QList<StackedWindow> &bottomToTop, const QList<uint32_t> &ours,
                           const QList<uint32_t> &later = {});

// Other programs' viewable override-redirect windows above the top-most of
// ours: where a screen locker would be.
QList<uint32_t> windowsAboveOurs(const QList<StackedWindow> &bottomToTop,
                                 const QList<uint32_t> &ours);

// A locker's window covers a whole monitor.
bool coversAMonitor(const QRect &window, const QList<QRect> &monitors);

} // namespace StackingPolicy
