import QtQuick
import GlimmoraApp

// The spotlight's mask drawn over a sample backdrop, around a point that a
// press or drag in the box moves; it follows the spotlight settings live.
Rectangle {
    id: root

    property real pointX: root.width * 0.6
    property real pointY: root.height * 0.5

    height: AppTheme.px(110)
    radius: AppTheme.px(10)
    clip: true
    gradient: Gradient {
        orientation: Gradient.Horizontal
        GradientStop { position: 0; color: "#2A4F8A" }
        GradientStop { position: 1; color: "#1A2E54" }
    }

    Canvas {
        id: mask

        readonly property real radius: AppTheme.px(28) + AppTheme.px(50)
                                       * Math.max(0, Math.min(1, (settingsManager.spotlightRadius - 60) / 340))
        // Where the soft edge begins, as a fraction of the radius.
        readonly property real edgeStart: Math.max(0, Math.min(0.99, 1 - settingsManager.edgeBlur
                                                                / settingsManager.spotlightRadius))
        readonly property real darkness: settingsManager.darknessOpacity

        anchors.fill: parent
        onRadiusChanged: mask.requestPaint()
        onEdgeStartChanged: mask.requestPaint()
        onDarknessChanged: mask.requestPaint()
        onWidthChanged: mask.requestPaint()
        onHeightChanged: mask.requestPaint()
        onPaint: {
            const ctx = mask.getContext("2d");
            ctx.reset();
            const x = root.pointX;
            const y = root.pointY;
            const shade = ctx.createRadialGradient(x, y, 0, x, y, mask.radius);
            const f = mask.edgeStart;
            shade.addColorStop(0, "transparent");
            shade.addColorStop(f, "transparent");
            shade.addColorStop(f + (1 - f) / 2, Qt.rgba(0, 0, 0, mask.darkness * 0.46));
            shade.addColorStop(1, Qt.rgba(0, 0, 0, mask.darkness));
            // Beyond the circle the gradient keeps its last, darkest colour.
            ctx.fillStyle = shade;
            ctx.fillRect(0, 0, mask.width, mask.height);
            // A small white arrow marks the pointer.
            const s = AppTheme.px(1);
            ctx.beginPath();
            ctx.moveTo(x, y);
            ctx.lineTo(x, y + 14 * s);
            ctx.lineTo(x + 4 * s, y + 10.5 * s);
            ctx.lineTo(x + 9.5 * s, y + 10.5 * s);
            ctx.closePath();
            ctx.fillStyle = "white";
            ctx.fill();
        }
    }

    MouseArea {
        id: pointer

        function moveTo(x: real, y: real) {
            root.pointX = Math.max(0, Math.min(root.width, x));
            root.pointY = Math.max(0, Math.min(root.height, y));
            mask.requestPaint();
        }

        anchors.fill: parent
        preventStealing: true
        onPressed: mouse => pointer.moveTo(mouse.x, mouse.y)
        onPositionChanged: mouse => pointer.moveTo(mouse.x, mouse.y)
    }
}
