import QtQuick
import GlimmoraApp

// The Windows look's slider, across its row's control area.
PanelSlider {
    // A white knob needs an edge on the light theme.
    knobBorderColor: AppTheme.winBorderHi
    knobBorderWidth: AppTheme.winIsDark ? 0 : 1
    anchors.left: parent.left
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
}
