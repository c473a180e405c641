import QtQuick
import GlimmoraApp

// A titled box of rows in the Linux look, with an optional footer below it.
Column {
    id: root

    property string title
    property string footer
    default property alias rows: box.data

    width: parent ? parent.width : 0
    spacing: AppTheme.px(8)

    Text {
        visible: root.title !== ""
        text: root.title
        color: AppTheme.linuxText
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeBody
        font.weight: Font.DemiBold
    }

    Rectangle {
        width: root.width
        height: box.implicitHeight
        radius: AppTheme.px(12)
        color: AppTheme.linuxSurface
        border.width: 1
        border.color: AppTheme.linuxBorderSubtle

        Column {
            id: box

            width: parent.width
        }
    }

    Text {
        width: root.width
        visible: root.footer !== ""
        text: root.footer
        wrapMode: Text.Wrap
        color: AppTheme.linuxTextDim
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeCaption
    }
}
