import QtQuick
import GlimmoraApp
import QtQuick.Controls.impl

// One row of a CtxMenu: optional icon, label, right-aligned shortcut.
Item {
    id: root

    property string label
    property string shortcut
    property string iconSource
    property bool danger: false
    property bool disabled: false

    signal triggered

    readonly property bool hovered: mouseArea.containsMouse && !root.disabled
    readonly property bool hasIcon: root.iconSource !== ""

    // What the row needs to show its label whole beside its shortcut.
    implicitWidth: labelText.x + labelText.implicitWidth + AppTheme.px(8)
                   + (root.shortcut !== "" ? shortcutText.implicitWidth + AppTheme.px(12) : AppTheme.px(4))
    width: parent ? parent.width : AppTheme.px(208)
    height: AppTheme.menuItemHeight

    Rectangle {
        anchors.fill: parent
        radius: AppTheme.px(6)
        color: root.hovered ? "#18FFFFFF" : "transparent"

        Behavior on color {
            ColorAnimation { duration: 60 }
        }
    }

    IconImage {
        id: icon

        objectName: "ctxItemIcon"
        visible: root.hasIcon
        x: AppTheme.px(10)
        anchors.verticalCenter: parent.verticalCenter
        width: AppTheme.px(16)
        height: AppTheme.px(16)
        source: root.iconSource
        color: root.disabled ? "#40FFFFFF" : root.danger ? "#F05D5D" : root.hovered ? AppTheme.text : AppTheme.textDim
    }

    Text {
        id: labelText

        objectName: "ctxItemLabel"
        x: root.hasIcon ? AppTheme.px(36) : AppTheme.px(12)
        anchors.verticalCenter: parent.verticalCenter
        width: shortcutText.x - labelText.x - AppTheme.px(8)
        text: root.label
        elide: Text.ElideRight
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeBody
        color: root.disabled ? "#40FFFFFF" : root.danger ? "#FF6B6B" : AppTheme.text
    }

    Text {
        id: shortcutText

        objectName: "ctxItemShortcut"
        x: root.width - AppTheme.px(12) - shortcutText.width
        anchors.verticalCenter: parent.verticalCenter
        text: root.shortcut
        font.family: AppTheme.monoFamily
        font.pixelSize: AppTheme.fontSizeCaption
        color: root.disabled ? "#28FFFFFF" : "#50FFFFFF"
    }

    MouseArea {
        id: mouseArea

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: root.disabled ? Qt.ArrowCursor : Qt.PointingHandCursor
        onClicked: {
            if (!root.disabled)
                root.triggered();
        }
    }
}
