import QtQuick
import GlimmoraApp

// One row of the macOS look: the label at the left, the control at the right.
Item {
    id: root

    property string label
    property string subText
    property bool first: false
    default property alias control: slot.data

    width: parent ? parent.width : 0
    height: Math.max(AppTheme.px(58), labels.implicitHeight + AppTheme.px(20))

    Rectangle {
        visible: !root.first
        x: AppTheme.px(16)
        width: parent.width - AppTheme.px(16)
        height: 1
        color: "#1A000000"
    }
    Column {
        id: labels

        x: AppTheme.px(16)
        width: AppTheme.px(220)
        anchors.verticalCenter: parent.verticalCenter
        spacing: AppTheme.px(2)

        Text {
            width: parent.width
            text: root.label
            wrapMode: Text.Wrap
            color: "#1D1D1F"
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
        }
        Text {
            width: parent.width
            visible: root.subText !== ""
            text: root.subText
            wrapMode: Text.Wrap
            color: "#6E6E73"
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
        }
    }
    Item {
        id: slot

        anchors.left: labels.right
        anchors.leftMargin: AppTheme.px(12)
        anchors.right: parent.right
        anchors.rightMargin: AppTheme.px(16)
        anchors.top: parent.top
        anchors.bottom: parent.bottom
    }
}
