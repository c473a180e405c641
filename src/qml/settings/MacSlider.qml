import QtQuick
import GlimmoraApp

// The macOS look's slider: a blue fill and a white knob.
PanelSlider {
    anchors.left: parent.left
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    trackColor: "#1A000000"
    fillColor: "#007AFF"
    knobSize: AppTheme.px(18)
    knobBorderColor: "#26000000"
    knobBorderWidth: 1
    readoutColor: "#6E6E73"
}
