import QtQuick
import QtQuick.Controls
import GlimmoraApp

// The plain toolbar button: an icon with hover, press and active looks.
Item {
    id: root

    property url iconSrc
    property bool active: false
    property string toolTip: ""
    property bool tbEnabled: true

    signal clicked()

    width: AppTheme.toolbarButtonWidth
    height: AppTheme.toolbarButtonHeight
    opacity: root.tbEnabled ? 1.0 : 0.35

    Behavior on opacity {
        NumberAnimation { duration: 100 }
    }

    Rectangle {
        anchors.fill: parent
        radius: AppTheme.cornerSmall
        color: !root.tbEnabled ? "transparent"
                               : mouseArea.pressed ? "#18FFFFFF"
                                                   : root.active ? AppTheme.accentSoft
                                                                 : mouseArea.containsMouse ? "#10FFFFFF"
                                                                                           : "transparent"

        Behavior on color {
            ColorAnimation { duration: AppTheme.durationFast }
        }
    }

    Rectangle {
        visible: root.active
        width: AppTheme.px(16)
        height: AppTheme.px(2)
        radius: 1
        color: AppTheme.accent
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 2
    }

    ToolButton {
        anchors.centerIn: parent
        padding: 0
        focusPolicy: Qt.NoFocus
        hoverEnabled: false
        background: null
        icon.source: root.iconSrc
        icon.width: AppTheme.iconSize
        icon.height: AppTheme.iconSize
        icon.color: root.active ? AppTheme.accent : AppTheme.text
    }

    MouseArea {
        id: mouseArea
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: root.tbEnabled ? Qt.PointingHandCursor : Qt.ArrowCursor
        onClicked: {
            if (root.tbEnabled)
                root.clicked();
        }
    }

    ToolTip.visible: root.toolTip !== "" && mouseArea.containsMouse
    ToolTip.delay: 500
    ToolTip.text: root.toolTip
}
