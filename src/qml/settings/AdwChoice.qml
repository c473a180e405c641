import QtQuick
import GlimmoraApp

// The Linux look's chips, at the right end of their row.
ChipChoice {
    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    activeTextColor: "white"
    fillColor: AppTheme.linuxControlFill
    lineColor: AppTheme.linuxControlLine
    textColor: AppTheme.linuxText
}
