import QtQuick
import GlimmoraApp

// One pen colour of the toolbar; a ring marks the current one.
Item {
    id: root

    required property color swatchColor
    property bool current: false

    signal picked()
    signal paletteRequested(real x, real y)

    width: AppTheme.px(20)
    height: AppTheme.toolbarButtonHeight
    scale: mouseArea.containsMouse ? 1.08 : 1.0

    Behavior on scale {
        NumberAnimation { duration: 100 }
    }

    Rectangle {
        anchors.centerIn: parent
        visible: root.current
        width: AppTheme.px(24)
        height: width
        radius: width / 2
        color: AppTheme.accent

        Rectangle {
            anchors.centerIn: parent
            width: AppTheme.px(20)
            height: width
            radius: width / 2
            color: AppTheme.bg
        }
    }

    Rectangle {
        anchors.centerIn: parent
        width: AppTheme.px(16)
        height: width
        radius: width / 2
        color: root.swatchColor
    }

    MouseArea {
        id: mouseArea
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        cursorShape: Qt.PointingHandCursor
        onClicked: function (mouse) {
            if (mouse.button === Qt.RightButton)
                root.paletteRequested(0, root.height);
            else
                root.picked();
        }
    }
}
