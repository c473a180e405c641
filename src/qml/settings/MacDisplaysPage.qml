import QtQuick
import GlimmoraApp

// The macOS look's displays: a switch per display, and "Primary" to make an
// enabled one hold the controls.
MacPage {
    title: qsTr("Displays")

    Repeater {
        model: displayManager.displays
        delegate: MacRow {
            id: row

            required property var modelData
            required property int index
            readonly property bool holdsControls: row.modelData.id === displayManager.controlDisplayId

            first: row.index === 0
            label: row.modelData.displayName
            subText: row.modelData.resolution + "  /  " + row.modelData.scalePercent

            Row {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                spacing: AppTheme.px(10)

                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: row.holdsControls ? qsTr("Control") : qsTr("Use")
                    color: "#6E6E73"
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.fontSizeCaption
                }
                PanelSwitch {
                    anchors.verticalCenter: parent.verticalCenter
                    width: AppTheme.px(44)
                    height: AppTheme.px(26)
                    knobSize: AppTheme.px(22)
                    checkedColor: "#34C759"
                    uncheckedColor: "#E9E9EB"
                    checked: row.modelData.enabled
                    onToggled: checked => displayManager.setDisplayEnabled(row.modelData.id, checked)
                }
                PanelButton {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Primary")
                    textColor: "#1D1D1F"
                    fillColor: "white"
                    lineColor: "#1A000000"
                    opacity: row.modelData.enabled ? 1 : 0.45
                    enabled: row.modelData.enabled
                    onClicked: displayManager.setControlDisplay(row.modelData.id)
                }
            }
        }
    }
}
