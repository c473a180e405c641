import QtQuick

// The Windows look's slider, across its row's control area.
PanelSlider {
    anchors.left: parent.left
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
}
