import QtQuick
import QtQuick.Controls
import GlimmoraApp

// The grip above the pill. Dragging it picks the display that holds the
// controls; the toolbar itself always returns to the top centre.
Item {
    id: root

    required property Item toolbar
    property bool dragging: false
    property point pressGlobal: Qt.point(0, 0)
    property point grabOffset: Qt.point(0, 0)

    signal dragMoveTo(real toolbarWindowX, real toolbarWindowY, real globalCursorX, real globalCursorY)
    signal dragFinished(bool committed)

    width: AppTheme.px(96)
    height: AppTheme.toolbarHandleHeight

    function windowX() { return Window.window ? Window.window.x : 0; }
    function windowY() { return Window.window ? Window.window.y : 0; }

    Rectangle {
        width: AppTheme.px(42)
        height: AppTheme.px(3)
        radius: height / 2
        anchors.horizontalCenter: parent.horizontalCenter
        y: AppTheme.px(5)
        color: handleArea.pressed ? AppTheme.accent : handleArea.containsMouse ? "#88FFFFFF" : "#55FFFFFF"
    }

    MouseArea {
        id: handleArea
        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        cursorShape: root.dragging ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        onPressed: {
            const p = appController.cursorPos();
            root.pressGlobal = p;
            root.grabOffset = Qt.point(p.x - root.windowX() - root.toolbar.x, p.y - root.windowY() - root.toolbar.y);
        }
        onPositionChanged: {
            if (!handleArea.pressed)
                return;
            const p = appController.cursorPos();
            if (!root.dragging) {
                if (Math.abs(p.x - root.pressGlobal.x) + Math.abs(p.y - root.pressGlobal.y) < 4)
                    return;
                root.dragging = true;
                appController.beginToolbarMove();
            }
            root.dragMoveTo(p.x - root.grabOffset.x - root.windowX(), p.y - root.grabOffset.y - root.windowY(), p.x, p.y);
        }
        onReleased: {
            if (!root.dragging)
                return;
            const committed = appController.endToolbarMove();
            root.dragging = false;
            Qt.callLater(root.dragFinished, committed);
        }
        onCanceled: {
            if (!root.dragging)
                return;
            appController.endToolbarMove();
            root.dragging = false;
            Qt.callLater(root.dragFinished, false);
        }
    }

    ToolTip.visible: handleArea.containsMouse && !handleArea.pressed
    ToolTip.delay: 500
    ToolTip.text: qsTr("Move toolbar")
}
