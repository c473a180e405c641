import QtQuick

// The Windows look's switch, at the right end of its row.
PanelSwitch {
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
}
