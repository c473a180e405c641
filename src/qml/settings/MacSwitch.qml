import QtQuick
import GlimmoraApp

// The macOS look's switch: green when on.
PanelSwitch {
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    width: AppTheme.px(44)
    height: AppTheme.px(26)
    knobSize: AppTheme.px(22)
    checkedColor: "#34C759"
    uncheckedColor: "#E9E9EB"
}
