import QtQuick
import GlimmoraApp

// One row of a group in the Linux look: the label column at the left, the
// control in the rest. Taller than its fixed height only when a text wraps.
Item {
    id: root

    property string label
    property string subtitle
    property bool first: false
    default property alias control: slot.data

    width: parent ? parent.width : 0
    height: Math.max(root.subtitle !== "" ? AppTheme.px(64) : AppTheme.px(48),
                     labels.implicitHeight + AppTheme.px(20))

    Rectangle {
        visible: !root.first
        width: parent.width
        height: 1
        color: AppTheme.linuxBorderSubtle
    }

    Column {
        id: labels

        x: AppTheme.px(16)
        width: AppTheme.px(230)
        anchors.verticalCenter: parent.verticalCenter
        spacing: AppTheme.px(2)

        Text {
            width: parent.width
            text: root.label
            wrapMode: Text.Wrap
            color: AppTheme.linuxText
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
        }
        Text {
            width: parent.width
            visible: root.subtitle !== ""
            text: root.subtitle
            wrapMode: Text.Wrap
            color: AppTheme.linuxTextDim
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
