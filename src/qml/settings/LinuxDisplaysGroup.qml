import QtQuick
import GlimmoraApp

// The displays in the Linux look: one switch per display, then the two
// switches of how the overlay spans them. The rows follow the display list
// as monitors come and go.
AdwGroup {
    title: qsTr("Displays")

    Repeater {
        model: displayManager.displays
        delegate: Item {
            id: row

            required property var modelData
            required property int index

            objectName: "displayRow-" + row.index
            width: parent.width
            height: Math.max(AppTheme.px(58), texts.implicitHeight + AppTheme.px(16))

            Rectangle {
                visible: row.index > 0
                width: parent.width
                height: 1
                color: AppTheme.linuxBorderSubtle
            }
            Rectangle {
                x: AppTheme.px(16)
                anchors.verticalCenter: parent.verticalCenter
                width: AppTheme.px(26)
                height: width
                radius: AppTheme.px(6)
                color: AppTheme.linuxControlFill
                border.width: 1
                border.color: AppTheme.linuxControlLine

                Text {
                    anchors.centerIn: parent
                    text: row.index + 1
                    color: AppTheme.linuxText
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.fontSizeBody
                    font.weight: Font.DemiBold
                }
            }
            Column {
                id: texts

                x: AppTheme.px(56)
                width: parent.width - AppTheme.px(56) - AppTheme.px(76)
                anchors.verticalCenter: parent.verticalCenter
                spacing: AppTheme.px(2)

                Text {
                    width: parent.width
                    text: row.modelData.displayName
                    elide: Text.ElideRight
                    color: AppTheme.linuxText
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.fontSizeBody
                }
                Text {
                    width: parent.width
                    text: row.modelData.resolution + " · " + row.modelData.scalePercent
                    elide: Text.ElideRight
                    color: AppTheme.linuxTextDim
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.fontSizeCaption
                }
            }
            Item {
                anchors.right: parent.right
                anchors.rightMargin: AppTheme.px(16)
                width: AppTheme.px(44)
                height: parent.height

                // The display manager refuses to turn off the last display;
                // the switch then stays on.
                AdwSwitch {
                    objectName: "displaySwitch-" + row.index
                    checked: row.modelData.enabled
                    onToggled: checked => displayManager.setDisplayEnabled(row.modelData.id, checked)
                }
            }
        }
    }

    AdwRow {
        label: qsTr("Spotlight on active display only")
        subtitle: qsTr("Only the display with cursor receives the dark mask")

        AdwSwitch {
            checked: settingsManager.spotlightActiveDisplayOnly
            onToggled: checked => settingsManager.setSpotlightActiveDisplayOnly(checked)
        }
    }
    AdwRow {
        label: qsTr("Mirror annotations")
        subtitle: qsTr("Strokes appear on all enabled displays")

        AdwSwitch {
            checked: settingsManager.mirrorAnnotationsAcrossDisplays
            onToggled: checked => settingsManager.setMirrorAnnotationsAcrossDisplays(checked)
        }
    }
}
