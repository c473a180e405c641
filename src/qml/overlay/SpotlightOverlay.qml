import QtQuick
import QtQuick.Window
import GlimmoraApp
import "SpotlightTracking.js" as Tracking

// Darkens this display but for a soft disc at the pointer. The overlay passes
// the mouse through in this mode, so the pointer comes from appController.
Item {
    id: root

    readonly property string myDisplayId: displayManager.displayIdForScreen(Screen.name)
    readonly property bool isActiveDisplay: !settingsManager.spotlightActiveDisplayOnly
                                            || appController.activeDisplayId === root.myDisplayId
    // The window's real position: a window manager may shift the overlay off
    // the screen's origin, which would offset the hole from the pointer.
    readonly property real screenVirtualX: Window.window ? Window.window.x : Screen.virtualX
    readonly property real screenVirtualY: Window.window ? Window.window.y : Screen.virtualY
    readonly property real screenW: Screen.width
    readonly property real screenH: Screen.height

    property real rawX: 0
    property real rawY: 0
    property real smoothX: root.rawX
    property real smoothY: root.rawY
    property bool hasCursorSample: false
    // True while the pointer moves and shortly after; frames are only
    // produced then, so a still pointer costs no rendering at all.
    property bool following: false
    property bool pointerHere: true

    // True while the disc reaches into this display. Elsewhere the mask is
    // uniformly dark, so the centre is parked at one point off the window and
    // nothing is redrawn while the pointer moves on another display.
    // The soft edge may run past the radius when it is wider than the disc.
    readonly property real discReach: Math.max(settingsManager.spotlightRadius, settingsManager.edgeBlur) + 1

    function discReaches(point) {
        const reach = root.discReach;
        return point.x > -reach && point.y > -reach && point.x < root.screenW + reach
                && point.y < root.screenH + reach;
    }

    function updateSpotlightPos(frameTimeSecs) {
        const p = appController.cursorPos();
        let next = Qt.point(p.x - root.screenVirtualX, p.y - root.screenVirtualY);
        root.pointerHere = root.discReaches(next);
        if (!root.pointerHere)
            next = Qt.point(-2 * root.discReach, -2 * root.discReach);
        root.rawX = next.x;
        root.rawY = next.y;
        if (!root.hasCursorSample || !settingsManager.spotlightSmoothTracking
                || settingsManager.spotlightSmoothingSeconds <= 0) {
            root.smoothX = next.x;
            root.smoothY = next.y;
            root.hasCursorSample = true;
            return;
        }
        const smooth = Tracking.follow(Qt.point(root.smoothX, root.smoothY), next, frameTimeSecs,
                                       settingsManager.spotlightRadius,
                                       settingsManager.spotlightSmoothingSeconds);
        root.smoothX = smooth.x;
        root.smoothY = smooth.y;
    }

    function rippleColorFor(buttons) {
        if (buttons & 2)
            return settingsManager.rightClickColor;
        if (buttons & 4)
            return settingsManager.middleClickColor;
        return settingsManager.leftClickColor;
    }

    // Also when the window lands at its place after the first sample, which
    // would leave the hole where the pointer is on another display.
    function refreshPosition() {
        if (root.visible && root.isActiveDisplay)
            root.updateSpotlightPos(0.016);
    }

    onVisibleChanged: root.refreshPosition()
    onScreenVirtualXChanged: root.refreshPosition()
    onScreenVirtualYChanged: root.refreshPosition()

    // The colour the window clears to while the mask shows: the mask beyond the disc.
    readonly property color windowColor: root.visible ? renderer.backdrop : "transparent"

    SpotlightRenderer {
        id: renderer

        anchors.fill: parent
        windowClearsBackdrop: true
        centerX: settingsManager.spotlightSmoothTracking ? root.smoothX : root.rawX
        centerY: settingsManager.spotlightSmoothTracking ? root.smoothY : root.rawY
        radius: settingsManager.spotlightRadius
        edgeBlur: settingsManager.edgeBlur
        darkness: settingsManager.darknessOpacity
        active: root.isActiveDisplay && appController.currentTool === "spotlight"
    }

    ClickRipple {
        id: ripple
        anchors.fill: parent
    }

    FrameAnimation {
        running: root.visible && root.isActiveDisplay && root.following && root.pointerHere
        onTriggered: root.updateSpotlightPos(frameTime)
    }

    Timer {
        id: settleTimer
        interval: 150
        onTriggered: root.following = false
    }

    Connections {
        target: appController

        function onMousePositionChanged() {
            if (!root.visible || !root.isActiveDisplay)
                return;
            root.updateSpotlightPos(0.016);
            root.following = true;
            settleTimer.restart();
        }

        function onMouseClicked(pos, buttons) {
            if (!settingsManager.clickRippleEnabled)
                return;
            const x = pos.x - root.screenVirtualX;
            const y = pos.y - root.screenVirtualY;
            // Every overlay hears every click; only the display holding it shows it.
            if (x < 0 || x > root.screenW || y < 0 || y > root.screenH)
                return;
            ripple.trigger(x, y, root.rippleColorFor(buttons), "");
        }
    }
}
