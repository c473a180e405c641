import QtQuick
import GlimmoraApp

// The Linux look's slider, across its row's control area.
PanelSlider {
    anchors.left: parent.left
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    trackColor: AppTheme.linuxTrack
    knobSize: AppTheme.px(16)
    knobColor: AppTheme.accent
    knobBorderColor: "white"
    knobBorderWidth: 2
    readoutColor: AppTheme.linuxTextDim
}
