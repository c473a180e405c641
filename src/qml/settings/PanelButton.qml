import QtQuick
import GlimmoraApp

// A push button of the settings panels; `primary` fills it with the accent.
Rectangle {
    id: root

    property string text
    property bool primary: false
    property color textColor: AppTheme.winText
    property color fillColor: AppTheme.winItemBg
    property color lineColor: AppTheme.winBorder
    property color primaryColor: AppTheme.accent
    property color primaryTextColor: AppTheme.isLinux ? "white" : "#1A1208"

    signal clicked()

    implicitWidth: label.implicitWidth + AppTheme.px(28)
    implicitHeight: AppTheme.px(32)
    radius: AppTheme.px(7)
    color: root.primary ? root.primaryColor : area.containsMouse ? Qt.darker(root.fillColor, 1.08) : root.fillColor
    border.width: root.primary ? 0 : 1
    border.color: root.lineColor

    Text {
        id: label

        anchors.centerIn: parent
        text: root.text
        color: root.primary ? root.primaryTextColor : root.textColor
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeBody
        font.weight: root.primary ? Font.DemiBold : Font.Medium
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: root.clicked()
    }
}
