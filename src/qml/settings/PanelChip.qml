import QtQuick
import GlimmoraApp

// A choice chip of the settings panels: filled with the accent when active.
Rectangle {
    id: root

    property string text
    property bool active: false
    property bool interactive: true
    property color activeColor: AppTheme.accent
    property color activeTextColor: "#1A1208"
    property color fillColor: AppTheme.winItemBg
    property color lineColor: AppTheme.winBorder
    property color textColor: AppTheme.winText
    property int minimumWidth: 0

    signal clicked()

    implicitWidth: Math.max(root.minimumWidth, label.implicitWidth + AppTheme.px(20))
    height: AppTheme.px(26)
    radius: AppTheme.px(6)
    color: root.active ? root.activeColor : root.fillColor
    border.width: root.active ? 0 : 1
    border.color: root.lineColor
    opacity: root.interactive ? 1 : 0.45

    Text {
        id: label

        anchors.centerIn: parent
        text: root.text
        color: root.active ? root.activeTextColor : root.textColor
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeCaption
        font.weight: root.active ? Font.DemiBold : Font.Normal
    }

    MouseArea {
        anchors.fill: parent
        enabled: root.interactive
        cursorShape: Qt.PointingHandCursor
        onClicked: root.clicked()
    }
}
