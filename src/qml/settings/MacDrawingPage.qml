import QtQuick
import GlimmoraApp

// The macOS look's drawing page. "Stroke smoothing" runs from 0 to 100 here
// and goes to the store as it is, whose clamp keeps the levels 0 to 3.
MacPage {
    id: root

    readonly property var tools: ["pen", "arrow", "rectangle", "circle", "highlighter"]

    title: qsTr("Drawing")

    MacRow {
        first: true
        label: qsTr("Default tool")

        MacSegment {
            options: [qsTr("Pen"), qsTr("Arrow"), qsTr("Rect"), qsTr("Ellipse"), qsTr("Highlight")]
            activeIndex: root.tools.indexOf(settingsManager.defaultDrawingTool)
            onPicked: index => {
                settingsManager.setDefaultDrawingTool(root.tools[index]);
                appController.setTool(root.tools[index]);
            }
        }
    }
    MacRow {
        label: qsTr("Brush size")

        MacSlider {
            from: 2
            to: 24
            value: settingsManager.brushSize
            readout: settingsManager.brushSize + " px"
            onMoved: value => settingsManager.setBrushSize(Math.round(value))
        }
    }
    MacRow {
        label: qsTr("Stroke smoothing")

        MacSlider {
            objectName: "macStrokeSmoothing"
            from: 0
            to: 100
            value: settingsManager.strokeSmoothing
            readout: settingsManager.strokeSmoothing + "%"
            onMoved: value => settingsManager.setStrokeSmoothing(Math.round(value))
        }
    }
    MacRow {
        label: qsTr("Default color")

        ColorDots {
            colors: ["#F05D5D", "#F4C24A", "#5EC27A", "#5DA8F0", "#C57BE0", "#FFFFFF"]
            current: settingsManager.defaultDrawingColor
            ringColor: "#007AFF"
            onPicked: color => {
                settingsManager.setDefaultDrawingColor(color);
                appController.setCurrentPenColor(color);
            }
        }
    }
    MacRow {
        label: qsTr("Show toolbar while drawing")

        MacSwitch {
            checked: settingsManager.showToolbarWhileDrawing
            onToggled: checked => settingsManager.setShowToolbarWhileDrawing(checked)
        }
    }
    MacRow {
        label: qsTr("Undo and redo")

        MacSwitch {
            checked: settingsManager.undoRedoEnabled
            onToggled: checked => settingsManager.setUndoRedoEnabled(checked)
        }
    }
}
