import QtQuick
import GlimmoraApp

// The round "?" at the bottom left. A tap pins or unpins the shortcut card;
// holding it shows the card only for as long as the button is held.
Item {
    id: root

    property bool isOpen: false
    // The current press has lasted long enough to count as a hold.
    property bool held: false

    signal toggled()
    signal peekStarted()
    signal peekEnded()

    // A hold ends its peek; a short press is a tap, unless the press was taken
    // away from the button.
    function finishPress(tapped: bool) {
        holdTimer.stop();
        if (root.held) {
            root.held = false;
            root.peekEnded();
        } else if (tapped) {
            root.toggled();
        }
    }

    width: AppTheme.helpButtonSize
    height: AppTheme.helpButtonSize

    // Hover halo, only while the card is closed.
    Rectangle {
        objectName: "helpHalo"
        anchors.centerIn: parent
        width: AppTheme.px(42)
        height: width
        radius: width / 2
        color: "transparent"
        border.width: 1
        border.color: AppTheme.accent
        opacity: mouseArea.containsMouse && !root.isOpen ? 0.35 : 0

        Behavior on opacity {
            NumberAnimation { duration: 180 }
        }
    }

    Rectangle {
        objectName: "helpCircle"
        anchors.fill: parent
        radius: width / 2
        color: root.isOpen ? AppTheme.accent
                           : mouseArea.pressed ? Qt.rgba(42 / 255, 48 / 255, 58 / 255, 0.95)
                                               : mouseArea.containsMouse ? Qt.rgba(30 / 255, 35 / 255, 42 / 255, 0.92)
                                                                         : Qt.rgba(20 / 255, 23 / 255, 28 / 255, 0.86)
        border.width: 1
        border.color: root.isOpen ? "transparent" : mouseArea.containsMouse ? AppTheme.borderHi : AppTheme.border

        Behavior on color {
            ColorAnimation { duration: 120 }
        }

        Text {
            anchors.centerIn: parent
            text: "?"
            color: root.isOpen ? "#1A1208" : AppTheme.accent
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.px(15)
            font.weight: Font.DemiBold
        }
    }

    Timer {
        id: holdTimer

        interval: 200
        onTriggered: {
            root.held = true;
            root.peekStarted();
        }
    }

    MouseArea {
        id: mouseArea

        objectName: "helpMouseArea"
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onPressed: {
            root.held = false;
            holdTimer.restart();
        }
        onReleased: root.finishPress(true)
        onCanceled: root.finishPress(false)
    }
}
