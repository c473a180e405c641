import QtQuick
import GlimmoraApp

// A drop-down panel of the toolbar (capture, record). It fills the toolbar
// so that a press anywhere else on the toolbar closes it.
Item {
    id: root

    property bool open: false
    property real panelX: 0
    property real panelY: 0
    // Wide enough for the longest row, in any language.
    readonly property int panelWidth: Math.ceil(Math.max(AppTheme.px(220), root.widestRow + AppTheme.px(12)))
    readonly property real widestRow: {
        let widest = 0;
        for (let i = 0; i < column.children.length; ++i)
            widest = Math.max(widest, column.children[i].implicitWidth);
        return widest;
    }
    default property alias rows: column.data

    anchors.fill: parent
    z: 200
    opacity: root.open ? 1 : 0
    visible: root.opacity > 0

    Behavior on opacity {
        NumberAnimation { duration: AppTheme.durationNormal; easing.type: Easing.OutQuad }
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        onPressed: root.open = false
    }

    Rectangle {
        x: root.panelX
        y: root.panelY
        width: root.panelWidth
        height: column.implicitHeight + AppTheme.px(12)
        radius: AppTheme.px(10)
        color: "#F012151A"
        border.width: 1
        border.color: AppTheme.borderHi
        transform: Scale {
            origin.x: root.panelWidth / 2
            origin.y: 0
            xScale: root.open ? 1.0 : 0.96
            yScale: root.open ? 1.0 : 0.96

            Behavior on xScale {
                NumberAnimation { duration: AppTheme.durationNormal; easing.type: Easing.OutCubic }
            }
            Behavior on yScale {
                NumberAnimation { duration: AppTheme.durationNormal; easing.type: Easing.OutCubic }
            }
        }

        // Presses on the panel stay here.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
        }

        Column {
            id: column
            anchors.fill: parent
            anchors.margins: AppTheme.px(6)
            topPadding: AppTheme.px(6)
        }
    }
}
