import QtQuick
import QtQuick.Controls
import GlimmoraApp

// Opens the capture menu; pulses while a capture is pending.
Item {
    id: root

    property bool menuOpen: false
    readonly property bool lit: mouseArea.containsMouse || root.menuOpen

    signal clicked()

    width: AppTheme.px(44)
    height: AppTheme.toolbarButtonHeight

    Rectangle {
        anchors.fill: parent
        radius: AppTheme.cornerSmall
        color: mouseArea.pressed || root.menuOpen ? "#18FFFFFF" : mouseArea.containsMouse ? "#10FFFFFF" : "transparent"

        Behavior on color {
            ColorAnimation { duration: AppTheme.durationFast }
        }
    }

    Canvas {
        id: glyph
        width: AppTheme.px(17)
        height: AppTheme.px(17)
        anchors.left: parent.left
        anchors.leftMargin: AppTheme.px(8)
        anchors.verticalCenter: parent.verticalCenter
        onPaint: {
            const ctx = getContext("2d");
            ctx.reset();
            const m = 3;
            const a = 5;
            const w = width;
            const h = height;
            ctx.strokeStyle = root.lit ? AppTheme.text : AppTheme.textDim;
            ctx.lineWidth = 1.8;
            ctx.lineCap = "round";
            ctx.lineJoin = "round";
            ctx.beginPath();
            ctx.moveTo(m, m + a); ctx.lineTo(m, m); ctx.lineTo(m + a, m);
            ctx.moveTo(w - m - a, m); ctx.lineTo(w - m, m); ctx.lineTo(w - m, m + a);
            ctx.moveTo(w - m, h - m - a); ctx.lineTo(w - m, h - m); ctx.lineTo(w - m - a, h - m);
            ctx.moveTo(m + a, h - m); ctx.lineTo(m, h - m); ctx.lineTo(m, h - m - a);
            ctx.stroke();
        }
    }

    onLitChanged: glyph.requestPaint()

    MenuChevron {
        lit: root.lit
        anchors.right: parent.right
        anchors.rightMargin: AppTheme.px(7)
        anchors.verticalCenter: parent.verticalCenter
    }

    Rectangle {
        id: pulse
        anchors.fill: parent
        anchors.margins: AppTheme.px(2)
        radius: AppTheme.cornerSmall + 1
        color: "transparent"
        border.width: AppTheme.px(2)
        border.color: AppTheme.accent
        // Shown only while a capture is pending, so its opacity is 0 again
        // as soon as the capture ends.
        visible: appController.captureInProgress
        opacity: ringPulse.value
    }

    // Only while the ring is on screen, which a hidden toolbar is not.
    SteppedPulse {
        id: ringPulse
        objectName: "ringPulse"
        running: appController.captureInProgress && pulse.visible
        rest: 0.2
        peak: 0.85
        outDuration: 180
        backDuration: 280
        outEasesOut: true
        backEasesIn: true
    }

    MouseArea {
        id: mouseArea
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: root.clicked()
    }

    ToolTip.visible: mouseArea.containsMouse && !root.menuOpen
    ToolTip.delay: 500
    ToolTip.text: qsTr("Capture")
}
