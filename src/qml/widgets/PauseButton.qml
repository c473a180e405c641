import QtQuick
import QtQuick.Controls
import GlimmoraApp

// A click pauses or resumes the overlay; holding for 400 ms or a right click
// opens the pause menu instead.
Item {
    id: root

    property string shortcutText: ""
    property real longPressProgress: 0
    property bool moved: false
    property point pressPoint: Qt.point(0, 0)
    readonly property int moveThreshold: AppTheme.isMacOS ? 14 : 5

    signal menuRequested()

    width: AppTheme.toolbarButtonWidth
    height: AppTheme.toolbarButtonHeight

    function resetHold() {
        holdAnimation.stop();
        root.longPressProgress = 0;
    }

    Rectangle {
        anchors.fill: parent
        radius: AppTheme.cornerSmall
        color: mouseArea.pressed ? AppTheme.accentSoft : mouseArea.containsMouse ? "#10FFFFFF" : "transparent"
    }

    Canvas {
        id: glyph
        anchors.centerIn: parent
        width: AppTheme.px(18)
        height: AppTheme.px(18)
        onPaint: {
            const ctx = getContext("2d");
            ctx.reset();
            ctx.scale(width / 24, height / 24);
            if (appController.overlayEnabled) {
                ctx.strokeStyle = AppTheme.text;
                ctx.lineWidth = 2.4;
                ctx.lineCap = "round";
                ctx.beginPath();
                ctx.moveTo(9, 4);
                ctx.lineTo(9, 18);
                ctx.moveTo(15, 4);
                ctx.lineTo(15, 18);
                ctx.stroke();
            } else {
                ctx.fillStyle = AppTheme.accent;
                ctx.beginPath();
                ctx.moveTo(7, 4);
                ctx.lineTo(19, 12);
                ctx.lineTo(7, 20);
                ctx.closePath();
                ctx.fill();
            }
        }

        Connections {
            target: appController
            function onOverlayEnabledChanged() { glyph.requestPaint(); }
        }
    }

    Canvas {
        id: ring
        anchors.fill: parent
        visible: mouseArea.pressed && root.longPressProgress > 0
        onPaint: {
            const ctx = getContext("2d");
            ctx.reset();
            const inset = 1.5;
            const w = width - 2 * inset;
            const h = height - 2 * inset;
            const r = Math.min(AppTheme.cornerSmall, w / 2, h / 2);
            const perimeter = 2 * (w - 2 * r) + 2 * (h - 2 * r) + 2 * Math.PI * r;
            ctx.strokeStyle = AppTheme.accent;
            ctx.lineWidth = 2;
            ctx.lineCap = "round";
            ctx.setLineDash([root.longPressProgress * perimeter / 2, perimeter]);
            ctx.beginPath();
            ctx.roundedRect(inset, inset, w, h, r, r);
            ctx.stroke();
        }
    }

    onLongPressProgressChanged: ring.requestPaint()

    NumberAnimation {
        id: holdAnimation
        target: root
        property: "longPressProgress"
        from: 0
        to: 1
        duration: 400
        onFinished: {
            if (root.longPressProgress >= 1)
                root.menuRequested();
        }
    }

    MouseArea {
        id: mouseArea
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        cursorShape: Qt.PointingHandCursor
        onPressed: function (mouse) {
            if (mouse.button === Qt.RightButton) {
                root.resetHold();
                root.menuRequested();
                return;
            }
            root.pressPoint = Qt.point(mouse.x, mouse.y);
            root.moved = false;
            root.longPressProgress = 0;
            holdAnimation.restart();
        }
        onPositionChanged: function (mouse) {
            if (!mouseArea.pressed || root.moved)
                return;
            if (Math.abs(mouse.x - root.pressPoint.x) + Math.abs(mouse.y - root.pressPoint.y) >= root.moveThreshold) {
                root.moved = true;
                root.resetHold();
            }
        }
        onReleased: function (mouse) {
            if (mouse.button !== Qt.LeftButton)
                return;
            if (!root.moved && holdAnimation.running) {
                root.resetHold();
                appController.toggleOverlay();
            }
        }
        onCanceled: root.resetHold()
    }

    ToolTip.visible: mouseArea.containsMouse && !mouseArea.pressed
    ToolTip.delay: 500
    ToolTip.text: appController.overlayEnabled ? qsTr("Pause  %1 · hold for menu").arg(root.shortcutText)
                                               : qsTr("Resume  %1").arg(root.shortcutText)
}
