import QtQuick
import QtQuick.Window
import GlimmoraApp

// The drawing layers on an enabled display other than the control display,
// and the drop target of a toolbar move, where it shows only the highlight.
Window {
    id: root

    required property string displayId

    readonly property bool toolbarInMotion: appController.toolbarDragging
                                            || appController.toolbarMoving
    readonly property bool isDragTarget: root.toolbarInMotion
                                         && appController.toolbarDragTargetDisplayId === root.displayId
    // Whether this display is on; true while it has no row at all.
    readonly property bool displayEnabled: {
        const rows = displayManager ? displayManager.displays : [];
        for (let i = 0; i < rows.length; ++i) {
            if (rows[i].id === root.displayId)
                return rows[i].enabled;
        }
        return true;
    }
    // A display that is off exists during a move only to show where the toolbar may go.
    readonly property bool dragPreviewOnly: root.isDragTarget && !root.displayEnabled

    // What each layer shows; the layers bind their `visible` to these.
    readonly property bool spotlightVisible: appController.currentTool === "spotlight"
                                             && !root.dragPreviewOnly
    readonly property bool committedLayerVisible: !root.dragPreviewOnly
    readonly property bool inputLayerVisible: appController.currentTool !== "spotlight"
                                              && !root.dragPreviewOnly
    readonly property bool toolbarPreviewVisible: appController.toolbarMoving && root.isDragTarget
                                                  && appController.toolbarDragTargetEnabled

    flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.Tool
    color: spotlight.windowColor
    visible: {
        if (!appController.overlayEnabled)
            return false;
        if (root.isDragTarget)
            return true;
        return root.displayEnabled;
    }

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

    ControlDisplayDropHighlight {
        displayId: root.displayId
    }

    // Where the toolbar will land if dropped here.
    FloatingToolbar {
        enabled: false
        opacity: 0.88
        z: 90
        visible: root.toolbarPreviewVisible
        x: Math.round((root.width - width) / 2)
        y: 14
    }
}
