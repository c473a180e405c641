import QtQuick
import GlimmoraApp

// The drawing layers of the control display, inside the root document's
// window. The window itself stays up while the display is switched off, so
// that the controls window above keeps its place; only this content hides.
Item {
    id: root

    readonly property string displayId: displayManager ? displayManager.controlDisplayId : ""
    readonly property bool uiVisible: !appController.captureInProgress
                                      && !appController.regionSelecting
    readonly property bool includeAnnotations: settingsManager
                                               && settingsManager.captureIncludeAnnotations

    // Whether the control display is on; true while it has no row at all.
    readonly property bool displayEnabled: {
        const rows = displayManager ? displayManager.displays : [];
        for (let i = 0; i < rows.length; ++i) {
            if (rows[i].id === root.displayId)
                return rows[i].enabled;
        }
        return true;
    }

    // What each layer shows; the layers bind their `visible` to these.
    readonly property bool spotlightVisible: appController.overlayEnabled
                                             && appController.currentTool === "spotlight"
    // Strokes stay painted while paused: this layer ignores overlayEnabled.
    readonly property bool committedLayerVisible: root.includeAnnotations || root.uiVisible
    readonly property bool inputLayerVisible: appController.overlayEnabled
                                              && appController.currentTool !== "spotlight"
                                              && (root.includeAnnotations || root.uiVisible)

    // What the window clears to: the spotlight lies first and darkens through it.
    readonly property color windowColor: root.visible ? spotlight.windowColor : "transparent"

    anchors.fill: parent
    visible: root.displayEnabled

    SpotlightOverlay {
        id: spotlight

        anchors.fill: parent
        visible: root.spotlightVisible
    }

    CommittedDrawingLayer {
        anchors.fill: parent
        visible: root.committedLayerVisible
    }

    DrawingInputLayer {
        anchors.fill: parent
        visible: root.inputLayerVisible
    }
}
