import QtQuick
import GlimmoraApp

// A page of the Windows look: its title and subtitle, then its cards.
PanelPage {
    id: root

    property string title
    property string subtitle

    Text {
        text: root.title
        color: AppTheme.winText
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeHeader
        font.weight: Font.Bold
    }
    Text {
        width: parent.width
        visible: root.subtitle !== ""
        text: root.subtitle
        wrapMode: Text.Wrap
        color: AppTheme.winTextDim
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeBody
    }
}
