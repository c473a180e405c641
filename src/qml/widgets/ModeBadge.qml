import QtQuick
import QtQuick.Controls
import GlimmoraApp
import "KeyText.js" as KeyText

// The pill at the top left that says what the overlay is doing and which key
// leaves that state. A click pauses or resumes the overlay.
Item {
    id: root

    readonly property bool paused: !appController.overlayEnabled
    readonly property bool drawing: !root.paused && appController.currentTool !== "spotlight"
                                    && appController.currentTool !== "cursor"
    readonly property var toolLabels: ({
                                           "cursor": qsTr("Cursor"),
                                           "spotlight": qsTr("Spotlight"),
                                           "pen": qsTr("Pen"),
                                           "arrow": qsTr("Arrow"),
                                           "rectangle": qsTr("Rectangle"),
                                           "circle": qsTr("Circle"),
                                           "highlighter": qsTr("Highlighter"),
                                           "eraser": qsTr("Eraser")
                                       })
    readonly property color dotColor: root.paused ? AppTheme.textMute : root.drawing ? AppTheme.green : AppTheme.accent
    readonly property string toolName: root.toolLabel(appController.currentTool)
    readonly property string modeLabel: root.paused ? qsTr("Glimmora · Paused") : qsTr("Glimmora · %1").arg(root.toolName)
    readonly property string modeHint: root.paused ? qsTr("%1 to resume").arg(root.hotkey("toggleOverlay"))
                                                   : root.drawing ? qsTr("%1 to cursor").arg(root.hotkey("exitToCursor"))
                                                                  : qsTr("%1 to pause").arg(root.hotkey("toggleOverlay"))

    // An identifier without a label of its own is shown as it is.
    function toolLabel(tool: string): string {
        return root.toolLabels.hasOwnProperty(tool) ? root.toolLabels[tool] : tool;
    }

    function hotkey(action: string): string {
        void settingsManager.hotkeysRevision;
        return KeyText.plain(settingsManager.hotkeyForAction(action), Qt.platform.os);
    }

    width: content.implicitWidth + AppTheme.px(24)
    height: AppTheme.px(32)
    scale: mouseArea.pressed ? 0.96 : 1.0

    Rectangle {
        anchors.fill: parent
        radius: AppTheme.px(10)
        color: "#DC141720"
        border.width: 1
        border.color: mouseArea.containsMouse ? AppTheme.borderHi : AppTheme.border

        Behavior on border.color {
            ColorAnimation { duration: AppTheme.durationFast }
        }
    }

    Row {
        id: content

        anchors.centerIn: parent
        spacing: AppTheme.px(8)

        Item {
            width: AppTheme.px(14)
            height: AppTheme.px(14)
            anchors.verticalCenter: parent.verticalCenter

            Rectangle {
                objectName: "badgeRing"
                anchors.centerIn: parent
                width: AppTheme.px(14)
                height: width
                radius: width / 2
                color: root.dotColor
                opacity: 0.35
                visible: !root.paused
            }

            Rectangle {
                objectName: "badgeDot"
                anchors.centerIn: parent
                width: AppTheme.px(8)
                height: width
                radius: width / 2
                color: root.dotColor
            }
        }

        Text {
            objectName: "badgeLabel"
            anchors.verticalCenter: parent.verticalCenter
            text: root.modeLabel
            color: AppTheme.text
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
            font.weight: Font.Medium
        }

        Text {
            objectName: "badgeHint"
            anchors.verticalCenter: parent.verticalCenter
            text: root.modeHint
            color: AppTheme.textMute
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
        }
    }

    MouseArea {
        id: mouseArea

        objectName: "badgeMouseArea"
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: appController.toggleOverlay()
    }

    ToolTip.visible: mouseArea.containsMouse
    ToolTip.delay: 600
    ToolTip.text: root.paused ? qsTr("Click to resume overlay") : qsTr("Click to pause overlay")
}
