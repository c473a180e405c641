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

bool takesEverything(const ClickThroughState &state)
{
    return !state.firstRunDone || state.regionSelecting || state.settingsVisible
        || state.modalActive || state.toolbarDragging || state.toolbarMoving;
}

QRectF grownToolbar(const QRectF &toolbar)
{
    return toolbar.adjusted(-toolbarMargin, -toolbarMargin, toolbarMargin, toolbarMargin);
}

// The band from the top of the control display down to below the toolbar.
QRectF toolbarBand(const QRectF &toolbar, const QRect &screen)
{
    const qreal w = toolbar.width();
    return QRectF(screen.x() + (screen.width() - w) / 2 - zoneSideMargin, screen.y(),
                  w + 2 * zoneSideMargin, toolbar.height() + zoneExtraHeight);
}

// The pixels a rectangle with inclusive edges covers.
QRect coveredPixels(const QRectF &rect)
{
    return rect.adjusted(0, 0, 1, 1).toAlignedRect();
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
    if (state.toolbarVisible && !toolbar.isEmpty() && grownToolbar(toolbar).contains(p))
        return true;
    if (presentAndContains(state.toastRect, p))
        return true;
    if (!state.toolbarVisible || toolbar.isEmpty() || !controlScreenAtPoint)
        return false;

    // A band from the top of the control display down to below the toolbar,
    // so the pointer travelling up to the toolbar never falls through.
    // The toolbar is known to be non-empty here.
    return toolbarBand(toolbar, *controlScreenAtPoint).contains(p);
}

bool hudInteractive(const ClickThroughState &state, QPointF p,
                    const std::optional<QRect> &controlScreenAtPoint)
{
    if (takesEverything(state))
        return true;
    return presentAndContains(state.controlsRevealRect, p)
        || isPointInToolbarZone(state, p, controlScreenAtPoint)
        || presentAndContains(state.statusBarRect, p) || presentAndContains(state.helpButtonRect, p)
        || presentAndContains(state.shortcutCardRect, p) || presentAndContains(state.modalRect, p);
}

std::optional<QRegion> hudInputArea(const ClickThroughState &state,
                                    const std::optional<QRect> &controlScreen)
{
    if (takesEverything(state))
        return std::nullopt;
    QRegion area;
    const auto add = [&area](const QRectF &rect) {
        if (!rect.isEmpty())
            area += coveredPixels(rect);
    };
    if (state.toolbarVisible && !state.toolbarRect.isEmpty()) {
        add(grownToolbar(state.toolbarRect));
        if (controlScreen)
            add(toolbarBand(state.toolbarRect, *controlScreen));
    }
    for (const QRectF &rect : { state.toastRect, state.controlsRevealRect, state.statusBarRect,
                                state.helpButtonRect, state.shortcutCardRect, state.modalRect })
        add(rect);
    return area;
}

} // namespace ClickThroughPolicy
