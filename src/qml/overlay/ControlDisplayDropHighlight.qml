import QtQuick
import GlimmoraApp

// Marks the display under the pointer while the toolbar is being moved, and
// says whether dropping it there will move the controls.
Item {
    id: root

    required property string displayId

    readonly property bool targeted: (appController.toolbarDragging || appController.toolbarMoving)
                                     && appController.toolbarDragTargetDisplayId === root.displayId
    readonly property bool targetEnabled: appController.toolbarDragTargetEnabled
    readonly property string message: root.displayId === displayManager.controlDisplayId
                                      ? "Current control display"
                                      : root.targetEnabled ? "Move controls here" : "Enable display first"

    anchors.fill: parent
    z: 80
    opacity: root.targeted ? 1 : 0
    visible: root.opacity > 0

    Behavior on opacity {
        NumberAnimation { duration: 90; easing.type: Easing.OutQuad }
    }

    Rectangle {
        objectName: "dropFrame"
        anchors.fill: parent
        anchors.margins: AppTheme.px(10)
        radius: AppTheme.px(12)
        border.width: 2
        color: root.targetEnabled ? "#0FF4C95D" : "#0FFFFFFF"
        border.color: root.targetEnabled ? "#88F4C95D" : "#55FFFFFF"
    }

    Rectangle {
        objectName: "dropLabel"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: AppTheme.px(56)
        width: caption.implicitWidth + AppTheme.px(28)
        height: AppTheme.controlHeight
        radius: AppTheme.cornerSmall
        color: "#E014171C"
        border.width: 1
        border.color: root.targetEnabled ? "#44F4C95D" : "#22FFFFFF"

        Text {
            id: caption

            objectName: "dropCaption"
            anchors.centerIn: parent
            text: root.message
            color: root.targetEnabled ? "#F4C95D" : AppTheme.textDim
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
            font.weight: Font.DemiBold
        }
    }
}
