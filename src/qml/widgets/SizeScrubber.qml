import QtQuick
import GlimmoraApp

// One control for two values: the spotlight radius in the spotlight tool,
// the brush size otherwise. The readout has a fixed width so the toolbar
// does not change width at every step.
Item {
    id: root

    readonly property bool spotlight: appController.currentTool === "spotlight"
    readonly property int minimum: root.spotlight ? 60 : 1
    readonly property int maximum: root.spotlight ? 400 : 32
    readonly property int value: root.spotlight ? settingsManager.spotlightRadius : settingsManager.brushSize
    readonly property real fraction: Math.max(0, Math.min(1, (root.value - root.minimum) / (root.maximum - root.minimum)))

    function setFromX(x) {
        const f = Math.max(0, Math.min(1, x / track.width));
        const v = Math.round(root.minimum + f * (root.maximum - root.minimum));
        if (root.spotlight)
            settingsManager.setSpotlightRadius(v);
        else
            settingsManager.setBrushSize(v);
    }

    implicitWidth: row.implicitWidth + AppTheme.px(16)
    implicitHeight: AppTheme.toolbarButtonHeight

    Row {
        id: row
        anchors.centerIn: parent
        spacing: AppTheme.px(8)

        Item {
            width: preview.width
            height: root.height

            Rectangle {
                id: preview
                anchors.centerIn: parent
                width: AppTheme.px(root.spotlight ? 14 : Math.min(20, Math.max(4, settingsManager.brushSize + 2)))
                height: preview.width
                radius: preview.width / 2
                color: root.spotlight ? "#66FFFFFF" : appController.currentPenColor
                border.width: 1
                border.color: root.spotlight ? AppTheme.text : "transparent"
            }
        }

        Item {
            id: track
            objectName: "sizeTrack"
            width: AppTheme.px(70)
            height: root.height

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: parent.width
                height: AppTheme.px(4)
                radius: height / 2
                color: AppTheme.surface3

                Rectangle {
                    width: parent.width * root.fraction
                    height: parent.height
                    radius: height / 2
                    color: AppTheme.accent
                }
            }

            Rectangle {
                x: root.fraction * (track.width - AppTheme.px(14)) - AppTheme.px(3)
                anchors.verticalCenter: parent.verticalCenter
                width: AppTheme.px(20)
                height: width
                radius: width / 2
                color: AppTheme.accent
                opacity: scrubArea.containsMouse || scrubArea.pressed ? 0.22 : 0

                Behavior on opacity {
                    NumberAnimation { duration: 100 }
                }
            }

            Rectangle {
                x: root.fraction * (track.width - AppTheme.px(14))
                anchors.verticalCenter: parent.verticalCenter
                width: AppTheme.px(14)
                height: width
                radius: width / 2
                color: "white"
                border.width: 1
                border.color: "#30000000"
            }

            MouseArea {
                id: scrubArea
                anchors.fill: parent
                hoverEnabled: true
                cursorShape: Qt.PointingHandCursor
                preventStealing: true
                onPressed: function (mouse) { root.setFromX(mouse.x); }
                onPositionChanged: function (mouse) {
                    if (scrubArea.pressed)
                        root.setFromX(mouse.x);
                }
            }
        }

        Text {
            width: AppTheme.px(38)
            height: root.height
            horizontalAlignment: Text.AlignRight
            verticalAlignment: Text.AlignVCenter
            text: root.value + "px"
            color: AppTheme.textDim
            font.pixelSize: AppTheme.fontSizeCaption
            font.family: AppTheme.monoFamily
            font.weight: Font.Medium
        }
    }
}
