import QtQuick
import GlimmoraApp

// A context menu over its parent. The panel opens at the point and flips to the
// other side of it where it would cross the right or bottom edge, so it is never
// pushed away from the place the user clicked.
Item {
    id: root

    property real atX: 0
    property real atY: 0
    default property alias rows: column.data

    function popup(x: real, y: real) {
        root.atX = x;
        root.atY = y;
        root.visible = true;
    }

    function close() {
        root.visible = false;
    }

    anchors.fill: parent
    visible: false
    z: 200

    // Any press outside the panel closes the menu, with whichever button, so
    // that a right press does not reach the layer below and open it again.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        onPressed: root.close()
    }

    Rectangle {
        id: panel

        objectName: "ctxMenuPanel"
        width: AppTheme.px(220)
        height: column.implicitHeight + AppTheme.px(12)
        x: root.atX + panel.width > root.width ? root.atX - panel.width : root.atX
        y: root.atY + panel.height > root.height ? root.atY - panel.height : root.atY
        radius: AppTheme.px(10)
        color: "#F0161B22"
        border.width: 1
        border.color: AppTheme.borderHi
        scale: root.visible ? 1.0 : 0.88
        opacity: root.visible ? 1.0 : 0.0

        Behavior on scale {
            NumberAnimation { duration: 100; easing.type: Easing.OutBack }
        }
        Behavior on opacity {
            NumberAnimation { duration: 100; easing.type: Easing.OutQuad }
        }

        // Presses inside the panel but between rows stay here.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
        }

        Column {
            id: column

            x: AppTheme.px(6)
            y: AppTheme.px(6)
            width: panel.width - 2 * AppTheme.px(6)
        }
    }
}
