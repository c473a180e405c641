import QtQuick
import GlimmoraApp

// A small upper-case heading above a preview or drawing.
Text {
    color: AppTheme.winTextMute
    font.family: AppTheme.fontFamily
    font.pixelSize: AppTheme.fontSizeCaption
    font.weight: Font.DemiBold
    font.letterSpacing: AppTheme.px(1)
}
