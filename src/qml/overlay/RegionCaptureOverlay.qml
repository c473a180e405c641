import QtQuick
import GlimmoraApp

// Rubber band for a region screenshot. Reports the dragged rectangle in its own
// logical pixels, or that the user gave up; the capture itself happens elsewhere.
Item {
    id: root

    anchors.fill: parent
    z: 150
    focus: true

    property real selX: 0
    property real selY: 0
    property real selW: 0
    property real selH: 0
    property bool selecting: false
    // Plain logical pixels: a click or a twitch of the hand is no selection.
    readonly property bool hasSelection: root.selW > 4 && root.selH > 4

    signal committed(real x, real y, real w, real h)
    signal cancelled()

    // Esc also ends a drag, so that the release after it has nothing to act on.
    Keys.onEscapePressed: {
        root.selecting = false;
        root.cancelled();
    }

    readonly property color dimColor: "#88000000"

    component Corner: Rectangle {
        width: AppTheme.px(8)
        height: AppTheme.px(8)
        radius: AppTheme.px(2)
        color: AppTheme.accent
    }

    Rectangle {
        objectName: "dimTop"
        color: root.dimColor
        x: 0
        y: 0
        width: root.width
        height: root.selY
    }
    Rectangle {
        objectName: "dimBottom"
        color: root.dimColor
        x: 0
        y: root.selY + root.selH
        width: root.width
        height: Math.max(0, root.height - (root.selY + root.selH))
    }
    Rectangle {
        objectName: "dimLeft"
        color: root.dimColor
        x: 0
        y: root.selY
        width: root.selX
        height: root.selH
    }
    Rectangle {
        objectName: "dimRight"
        color: root.dimColor
        x: root.selX + root.selW
        y: root.selY
        width: Math.max(0, root.width - (root.selX + root.selW))
        height: root.selH
    }

    Rectangle {
        id: frame
        objectName: "selectionFrame"
        x: root.selX
        y: root.selY
        width: root.selW
        height: root.selH
        visible: root.hasSelection
        color: "transparent"
        border.color: AppTheme.accent
        border.width: AppTheme.px(2)

        Rectangle {
            objectName: "sizeLabel"
            visible: root.selW > AppTheme.px(90) && root.selH > AppTheme.px(32)
            anchors.horizontalCenter: parent.horizontalCenter
            y: AppTheme.px(6)
            height: AppTheme.px(22)
            width: sizeText.implicitWidth + AppTheme.px(16)
            radius: AppTheme.px(4)
            color: "#CC000000"

            Text {
                id: sizeText
                anchors.centerIn: parent
                text: Math.round(root.selW) + " × " + Math.round(root.selH)
                color: "white"
                font.pixelSize: AppTheme.fontSizeCaption
                font.family: AppTheme.monoFamily
            }
        }

        // Inside the corners; the right and lower ones sit a pixel in from the edge.
        Corner {
            x: 0
            y: 0
        }
        Corner {
            x: frame.width - width - AppTheme.px(1)
            y: 0
        }
        Corner {
            x: 0
            y: frame.height - height - AppTheme.px(1)
        }
        Corner {
            x: frame.width - width - AppTheme.px(1)
            y: frame.height - height - AppTheme.px(1)
        }
    }

    Rectangle {
        objectName: "hint"
        visible: !root.selecting && !root.hasSelection
        anchors.centerIn: parent
        height: AppTheme.px(36)
        width: hintText.implicitWidth + AppTheme.px(24)
        radius: AppTheme.px(8)
        color: "#CC000000"

        Text {
            id: hintText
            anchors.centerIn: parent
            text: qsTr("Drag to select a region  ·  Esc to cancel")
            color: "white"
            font.pixelSize: AppTheme.fontSizeBody
            font.family: AppTheme.fontFamily
        }
    }

    MouseArea {
        id: area
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton
        cursorShape: Qt.CrossCursor

        property real startX: 0
        property real startY: 0

        onPressed: mouse => {
            area.startX = mouse.x;
            area.startY = mouse.y;
            root.selX = mouse.x;
            root.selY = mouse.y;
            root.selW = 0;
            root.selH = 0;
            root.selecting = true;
        }
        // The position may leave the item; the rectangle then reaches beyond it
        // and the capture clips it.
        onPositionChanged: mouse => {
            if (!root.selecting)
                return;
            root.selX = Math.min(area.startX, mouse.x);
            root.selY = Math.min(area.startY, mouse.y);
            root.selW = Math.max(area.startX, mouse.x) - root.selX;
            root.selH = Math.max(area.startY, mouse.y) - root.selY;
        }
        onReleased: {
            if (!root.selecting)
                return;
            root.selecting = false;
            if (root.hasSelection)
                root.committed(root.selX, root.selY, root.selW, root.selH);
            else
                root.cancelled();
        }
        onCanceled: root.selecting = false
    }
}
