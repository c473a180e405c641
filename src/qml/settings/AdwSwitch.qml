import QtQuick
import GlimmoraApp

// The Linux look's switch, at the right end of its row.
PanelSwitch {
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    width: AppTheme.px(44)
    height: AppTheme.px(26)
    knobSize: AppTheme.px(20)
    uncheckedColor: AppTheme.linuxSwitchOff
}
