import QtQuick

// The Windows look's chips, at the right end of their row.
ChipChoice {
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
}
