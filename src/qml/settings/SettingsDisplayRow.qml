import QtQuick
import GlimmoraApp

// One display in the Windows look's list: its name and mode, whether it holds
// the controls, and whether it gets the overlay. The last display that may
// not be turned off shows its switch inactive.
Item {
    id: root

    required property var modelData
    required property int index
    readonly property bool control: root.modelData.id === displayManager.controlDisplayId

    objectName: "displayRow-" + root.index
    width: parent ? parent.width : 0
    height: AppTheme.px(64)

    Rectangle {
        visible: root.index > 0
        width: parent.width
        height: 1
        color: AppTheme.winLine
    }
    Rectangle {
        x: AppTheme.px(18)
        anchors.verticalCenter: parent.verticalCenter
        width: AppTheme.px(28)
        height: width
        radius: AppTheme.px(7)
        color: root.modelData.enabled ? AppTheme.accentSoft : AppTheme.winItemBg

        Text {
            anchors.centerIn: parent
            text: root.index + 1
            color: root.modelData.enabled ? AppTheme.accent : AppTheme.winTextDim
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
            font.weight: Font.Bold
        }
    }
    Column {
        x: AppTheme.px(60)
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width - AppTheme.px(60) - AppTheme.px(128) - AppTheme.px(90)
        spacing: AppTheme.px(3)

        Row {
            spacing: AppTheme.px(8)

            Text {
                text: root.modelData.displayName
                color: AppTheme.winText
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeBody
                font.weight: Font.Medium
            }
            Text {
                visible: root.modelData.isPrimary
                text: qsTranslate("SettingsWindow", "Primary")
                color: AppTheme.accent
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeCaption
            }
        }
        Text {
            text: root.modelData.resolution + " · " + root.modelData.scalePercent
            color: AppTheme.winTextDim
            font.family: AppTheme.monoFamily
            font.pixelSize: AppTheme.fontSizeCaption
        }
    }
    Text {
        anchors.right: displaySwitch.left
        anchors.rightMargin: AppTheme.px(18)
        anchors.verticalCenter: parent.verticalCenter
        width: AppTheme.px(128)
        horizontalAlignment: Text.AlignRight
        text: root.control ? qsTranslate("SettingsWindow", "Main Control")
                           : root.modelData.enabled ? qsTranslate("SettingsWindow", "Set Main Control")
                                                     : qsTranslate("SettingsWindow", "Enable first")
        color: root.control ? AppTheme.accent : root.modelData.enabled ? AppTheme.winText : AppTheme.winTextMute
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeCaption
        font.underline: !root.control && root.modelData.enabled && setControlArea.containsMouse

        MouseArea {
            id: setControlArea

            anchors.fill: parent
            enabled: !root.control && root.modelData.enabled
            hoverEnabled: true
            cursorShape: Qt.PointingHandCursor
            onClicked: displayManager.setControlDisplay(root.modelData.id)
        }
    }
    PanelSwitch {
        id: displaySwitch

        anchors.right: parent.right
        anchors.rightMargin: AppTheme.px(18)
        anchors.verticalCenter: parent.verticalCenter
        checked: root.modelData.enabled
        interactive: !root.modelData.enabled || root.modelData.canDisable
        onToggled: checked => displayManager.setDisplayEnabled(root.modelData.id, checked)
    }
}
