import QtQuick
import QtQuick.Controls
import GlimmoraApp

// The record control: a red dot that opens the record menu, widening while a
// recording runs to show its state, the elapsed time and a stop square.
Item {
    id: root

    property bool menuOpen: false
    readonly property int recState: appController.recordingState
    readonly property bool running: root.recState === 1 || root.recState === 2
    readonly property bool initializing: root.recState === 5
    readonly property bool expanded: root.running || root.initializing
    readonly property bool lit: slotArea.containsMouse || root.menuOpen
    property int readyDots: 1

    signal menuToggleRequested()

    function elapsedText(seconds) {
        const minutes = Math.floor(seconds / 60);
        const rest = seconds % 60;
        return (minutes < 10 ? "0" : "") + minutes + ":" + (rest < 10 ? "0" : "") + rest;
    }

    // Implicit, so that the toolbar's row, and with it the pill, grows along.
    implicitWidth: root.expanded ? AppTheme.px(124) : AppTheme.px(44)
    height: AppTheme.toolbarButtonHeight
    clip: true

    Behavior on implicitWidth {
        NumberAnimation { duration: AppTheme.durationNormal; easing.type: Easing.OutCubic }
    }

    Rectangle {
        anchors.fill: parent
        radius: AppTheme.cornerSmall
        color: slotArea.pressed || root.menuOpen ? "#18FFFFFF" : slotArea.containsMouse ? "#10FFFFFF" : "transparent"
        border.width: root.expanded ? 1 : 0
        border.color: "#36F04040"
    }

    Canvas {
        id: glyph
        width: AppTheme.px(16)
        height: AppTheme.px(16)
        anchors.left: parent.left
        anchors.leftMargin: AppTheme.px(9)
        anchors.verticalCenter: parent.verticalCenter
        onPaint: {
            const ctx = getContext("2d");
            ctx.reset();
            const c = width / 2;
            ctx.fillStyle = root.lit || root.expanded ? "#F04040" : "#D84848";
            ctx.beginPath();
            ctx.arc(c, c, (root.expanded ? 0.22 : 0.28) * width, 0, 2 * Math.PI);
            ctx.fill();
            if (root.recState !== 1 && root.recState !== 2 && root.recState !== 5) {
                ctx.strokeStyle = root.lit ? "#FF6060" : "#C84040";
                ctx.lineWidth = 1.4;
                ctx.beginPath();
                ctx.arc(c, c, 0.42 * width, 0, 2 * Math.PI);
                ctx.stroke();
            }
        }
    }

    onLitChanged: glyph.requestPaint()
    onRecStateChanged: glyph.requestPaint()

    Text {
        id: label
        visible: root.expanded
        anchors.left: glyph.right
        anchors.leftMargin: AppTheme.px(5)
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: AppTheme.px(10)
        font.family: AppTheme.monoFamily
        font.weight: Font.DemiBold
        text: root.initializing ? qsTr("Ready") + ".".repeat(root.readyDots) : root.recState === 1 ? qsTr("REC") : qsTr("PAUSE")
        color: root.initializing ? AppTheme.accent : root.recState === 1 ? "#FF6A6A" : AppTheme.textDim
        opacity: root.recState === 2 ? 0.5 : recPulse.value
    }

    // Only while the label is on screen: a slid-out toolbar is not visible.
    SteppedPulse {
        id: recPulse
        objectName: "recPulse"
        running: root.recState === 1 && label.visible
    }

    Timer {
        interval: 600
        repeat: true
        running: root.initializing && label.visible
        onTriggered: root.readyDots = root.readyDots % 3 + 1
    }

    Text {
        visible: root.running
        anchors.left: label.right
        anchors.leftMargin: AppTheme.px(5)
        anchors.right: stopSquare.left
        anchors.rightMargin: AppTheme.px(4)
        anchors.verticalCenter: parent.verticalCenter
        elide: Text.ElideRight
        font.pixelSize: AppTheme.px(10)
        font.family: AppTheme.monoFamily
        color: AppTheme.text
        text: root.elapsedText(appController.recordingElapsed)
    }

    MouseArea {
        id: slotArea
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: function (mouse) {
            if (root.running) {
                if (mouse.x < root.width - AppTheme.px(22))
                    appController.pauseResumeRecording();
            } else if (!root.initializing) {
                root.menuToggleRequested();
            }
        }
    }

    Rectangle {
        id: stopSquare
        visible: root.expanded
        width: AppTheme.px(10)
        height: AppTheme.px(10)
        radius: AppTheme.px(2)
        anchors.right: parent.right
        anchors.rightMargin: AppTheme.px(6)
        anchors.verticalCenter: parent.verticalCenter
        color: stopArea.containsMouse ? "#FF6060" : "#C04040"

        Behavior on color {
            ColorAnimation { duration: 80 }
        }

        MouseArea {
            id: stopArea
            anchors.fill: parent
            anchors.margins: -AppTheme.px(4)
            hoverEnabled: true
            cursorShape: Qt.PointingHandCursor
            onClicked: appController.stopRecording()
        }

        ToolTip.visible: stopArea.containsMouse
        ToolTip.delay: 400
        ToolTip.text: qsTr("Stop recording")
    }

    MenuChevron {
        visible: !root.expanded
        lit: root.lit
        anchors.right: parent.right
        anchors.rightMargin: AppTheme.px(7)
        anchors.verticalCenter: parent.verticalCenter
    }

    ToolTip.visible: slotArea.containsMouse && !stopArea.containsMouse
    ToolTip.delay: 500
    ToolTip.text: root.initializing ? qsTr("Starting recorder…")
                                    : root.recState === 1 ? qsTr("Recording  ·  click to pause  ·  stop")
                                                       : root.recState === 2 ? qsTr("Paused  ·  click to resume  ·  stop")
                                                                          : qsTr("Record")
}
