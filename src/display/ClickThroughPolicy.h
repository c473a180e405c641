#pragma once

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QRegion>
#include <QString>

#include <optional>

// What the pass-through decision reads, copied out of the controller so the
// decision stays a pure function that tests can drive row by row.
struct ClickThroughState
{
    bool overlayEnabled = true;
    QString currentTool = QStringLiteral("cursor");
    bool toolbarDragging = false;
    bool toolbarMoving = false;
    bool toolbarVisible = true;
    bool firstRunDone = true;
    bool regionSelecting = false;
    bool settingsVisible = false;
    bool modalActive = false;

    // Hit rectangles in global logical coordinates; empty means absent.
    QRectF toolbarRect;
    QRectF helpButtonRect;
    QRectF shortcutCardRect;
    QRectF statusBarRect;
    QRectF controlsRevealRect;
    QRectF toastRect;
    QRectF modalRect;
};

namespace ClickThroughPolicy {

// Whether the drawing overlays let the mouse through.
bool overlayClickThrough(const ClickThroughState &state);

// `controlScreenAtPoint` is the geometry of the screen under p when that
// screen is the control display (and a display manager exists), else nullopt.
bool isPointInToolbarZone(const ClickThroughState &state, QPointF p,
                          const std::optional<QRect> &controlScreenAtPoint);

// Whether the HUD takes the mouse at p.
bool hudInteractive(const ClickThroughState &state, QPointF p,
                    const std::optional<QRect> &controlScreenAtPoint);

// Where the HUD takes the mouse, in global coordinates, as an area the window
// system can hold: nullopt for the whole window, else the points where
// hudInteractive is true. `controlScreen` is the control display's geometry,
// if a display manager knows it.
std::optional<QRegion> hudInputArea(const ClickThroughState &state,
                                    const std::optional<QRect> &controlScreen);

// An empty rectangle contains nothing; edges are inclusive.
bool presentAndContains(const QRectF &rect, QPointF p);

} // namespace ClickThroughPolicy
