import QtQuick
import GlimmoraApp

// The small downward triangle of the capture and record buttons.
Canvas {
    id: root

    property bool lit: false

    width: AppTheme.px(8)
    height: AppTheme.px(6)
    onLitChanged: root.requestPaint()
    onPaint: {
        const ctx = getContext("2d");
        ctx.reset();
        ctx.fillStyle = root.lit ? AppTheme.text : AppTheme.textMute;
        ctx.beginPath();
        ctx.moveTo(0, 0);
        ctx.lineTo(width, 0);
        ctx.lineTo(width / 2, height);
        ctx.closePath();
        ctx.fill();
    }
}
