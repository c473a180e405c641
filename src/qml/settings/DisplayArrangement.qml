import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The displays drawn where they stand, scaled into the card. An enabled
// display takes the control display on a click.
Rectangle {
    id: root

    readonly property var boxes: SettingsLogic.arrangement(displayManager.displays, root.width, root.height)

    height: AppTheme.px(108)
    radius: AppTheme.px(10)
    color: AppTheme.winCard
    border.width: 1
    border.color: AppTheme.winLine

    Repeater {
        model: displayManager.displays

        // Qt 6.4's linter does not see this document's ids inside a delegate.
        // qmllint disable unqualified
        delegate: Rectangle {
            id: box

            required property var modelData
            required property int index
            readonly property var place: root.boxes[box.index] || { x: 0, y: 0, width: 8, height: 8 }
            readonly property bool control: box.modelData.id === displayManager.controlDisplayId

            objectName: "arrangement-" + box.index
            // A pixel apart, so that neighbouring displays read as two.
            x: box.place.x + 1
            y: box.place.y + 1
            width: box.place.width - 2
            height: box.place.height - 2
            radius: AppTheme.px(4)
            color: box.modelData.enabled ? AppTheme.accent : Qt.rgba(AppTheme.winTrack.r, AppTheme.winTrack.g,
                                                                        AppTheme.winTrack.b, 0.35)
            border.width: box.control || box.modelData.isPrimary ? 2 : 0
            border.color: box.control ? "#F4C95D" : AppTheme.winText

            Text {
                anchors.centerIn: parent
                text: box.index + 1
                color: box.modelData.enabled ? "#1A1208" : AppTheme.winTextDim
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeBody
                font.weight: Font.Bold
            }
            Badge {
                visible: box.modelData.isPrimary && box.width > 32
                anchors.verticalCenter: parent.top
                text: qsTranslate("SettingsWindow", "primary")
            }
            Badge {
                visible: box.control && box.width > 42
                anchors.verticalCenter: parent.bottom
                text: qsTranslate("SettingsWindow", "Main Control")
            }
            MouseArea {
                anchors.fill: parent
                enabled: box.modelData.enabled
                cursorShape: Qt.PointingHandCursor
                onClicked: displayManager.setControlDisplay(box.modelData.id)
            }
        }
        // qmllint enable unqualified
    }

    component Badge: Rectangle {
        property alias text: badgeText.text

        anchors.horizontalCenter: parent.horizontalCenter
        width: badgeText.implicitWidth + AppTheme.px(10)
        height: AppTheme.px(16)
        radius: height / 2
        color: AppTheme.winPopupBg
        border.width: 1
        border.color: AppTheme.winBorder

        Text {
            id: badgeText

            anchors.centerIn: parent
            color: AppTheme.winText
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.px(9)
        }
    }
}
