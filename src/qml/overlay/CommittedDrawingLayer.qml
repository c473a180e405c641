import QtQuick
import GlimmoraApp

// The committed strokes of this window's display, under the input layer.
Item {
    id: root

    readonly property string displayId: displayManager.displayIdForScreen(root.Screen.name)
    // Read here: inside the renderer the name would find its own property.
    readonly property DrawingModel model: drawingModel

    DrawingRendererItem {
        id: renderer

        objectName: "committedRenderer"
        anchors.fill: parent
        visible: renderer.hasContent
        drawingModel: root.model
        displayId: root.displayId
        mirrorAnnotations: settingsManager.mirrorAnnotationsAcrossDisplays
        defaultColor: appController.currentPenColor
        defaultWidth: settingsManager.brushSize
        defaultSmoothing: settingsManager.strokeSmoothing
    }
}
