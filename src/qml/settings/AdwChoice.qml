import QtQuick
import GlimmoraApp

// The Linux look's chips, at the right end of their row.
ChipChoice {
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    activeTextColor: "white"
    fillColor: "#0000000D"
    lineColor: "#0000001A"
    textColor: AppTheme.linuxText
}
