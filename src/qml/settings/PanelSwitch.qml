import QtQuick
import GlimmoraApp

// A switch of the settings panels. It shows `checked` as bound and only
// reports a click, so the owner writes the setting and the binding brings the
// stored value back; a refused change leaves the switch where it was.
Rectangle {
    id: root

    property bool checked: false
    property bool interactive: true
    property color checkedColor: AppTheme.accent
    property color uncheckedColor: AppTheme.winBorderHi
    property int knobSize: AppTheme.px(16)

    signal toggled(bool checked)

    width: AppTheme.px(38)
    height: AppTheme.px(20)
    radius: root.height / 2
    color: root.checked ? root.checkedColor : root.uncheckedColor
    opacity: root.interactive ? 1 : 0.45

    Behavior on color {
        ColorAnimation { duration: AppTheme.durationFast }
    }

    Rectangle {
        readonly property real inset: (root.height - root.knobSize) / 2

        x: root.checked ? root.width - root.knobSize - inset : inset
        y: inset
        width: root.knobSize
        height: root.knobSize
        radius: root.knobSize / 2
        color: "white"

        Behavior on x {
            NumberAnimation { duration: AppTheme.durationFast; easing.type: Easing.OutQuad }
        }
    }

    MouseArea {
        anchors.fill: parent
        enabled: root.interactive
        cursorShape: Qt.PointingHandCursor
        onClicked: root.toggled(!root.checked)
    }
}
