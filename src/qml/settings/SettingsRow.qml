import QtQuick
import GlimmoraApp

// One row of a card in the Windows look: the label column at the left, the
// control in the rest. At least its fixed height, taller when a text wraps.
Item {
    id: root

    property string label
    property string subText
    property bool last: false
    default property alias control: slot.data

    width: parent ? parent.width : 0
    height: Math.max(AppTheme.px(48), labels.implicitHeight + AppTheme.px(22))

    Column {
        id: labels

        x: AppTheme.px(18)
        width: AppTheme.px(210)
        anchors.verticalCenter: parent.verticalCenter
        spacing: AppTheme.px(3)

        Text {
            width: parent.width
            text: root.label
            wrapMode: Text.Wrap
            color: AppTheme.winText
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
            font.weight: Font.Medium
        }
        Text {
            width: AppTheme.px(200)
            visible: root.subText !== ""
            text: root.subText
            wrapMode: Text.Wrap
            color: AppTheme.winTextDim
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
        }
    }

    Item {
        id: slot

        anchors.left: labels.right
        anchors.leftMargin: AppTheme.px(12)
        anchors.right: parent.right
        anchors.rightMargin: AppTheme.px(18)
        anchors.top: parent.top
        anchors.bottom: parent.bottom
    }

    Rectangle {
        visible: !root.last
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: AppTheme.winLine
    }
}
