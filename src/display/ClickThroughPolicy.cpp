#include "display/ClickThroughPolicy.h"

namespace ClickThroughPolicy {

namespace {
constexpr qreal toolbarMargin = 8.0;
constexpr qreal zoneSideMargin = 24.0;
constexpr qreal zoneExtraHeight = 56.0;

bool isNonDrawingTool(const QString &tool)
{
    return tool == QLatin1String("cursor") || tool == QLatin1String("spotlight");
}
} // namespace

bool presentAndContains(const QRectF &rect, QPointF p)
{
    return !rect.isEmpty() && rect.contains(p);
}

bool overlayClickThrough(const ClickThroughState &state)
{
    if (!state.overlayEnabled || isNonDrawingTool(state.currentTool))
        return true;
    return state.toolbarDragging || state.toolbarMoving;
}

bool isPointInToolbarZone(const ClickThroughState &state, QPointF p,
                          const std::optional<QRect> &controlScreenAtPoint)
{
    const QRectF &toolbar = state.toolbarRect;
    if (state.toolbarVisible && !toolbar.isEmpty()) {
        const QRectF grown =
            toolbar.adjusted(-toolbarMargin, -toolbarMargin, toolbarMargin, toolbarMargin);
        if (grown.contains(p))
            return true;
    }
    if (presentAndContains(state.toastRect, p))
        return true;
    if (!state.toolbarVisible || toolbar.isEmpty() || !controlScreenAtPoint)
        return false;

    // A band from the top of the control display down to below the toolbar,
    // so the pointer travelling up to the toolbar never falls through.
    // The toolbar is known to be non-empty here.
    const qreal w = toolbar.width();
    const QRect &screen = *controlScreenAtPoint;
    const QRectF zone(screen.x() + (screen.width() - w) / 2 - zoneSideMargin, screen.y(),
                      w + 2 * zoneSideMargin, toolbar.height() + zoneExtraHeight);
    return zone.contains(p);
}

bool hudInteractive(const ClickThroughState &state, QPointF p,
                    const std::optional<QRect> &controlScreenAtPoint)
{
    if (!state.firstRunDone || state.regionSelecting || state.settingsVisible || state.modalActive
        || state.toolbarDragging || state.toolbarMoving)
        return true;
    return presentAndContains(state.controlsRevealRect, p)
        || isPointInToolbarZone(state, p, controlScreenAtPoint)
        || presentAndContains(state.statusBarRect, p) || presentAndContains(state.helpButtonRect, p)
        || presentAndContains(state.shortcutCardRect, p) || presentAndContains(state.modalRect, p);
}

} // namespace ClickThroughPolicy
