import QtQuick
import GlimmoraApp

// "Recording saved · Show in folder" under the pill for four seconds.
Rectangle {
    id: root

    property string path: ""
    property bool shown: false

    width: row.implicitWidth + AppTheme.px(20)
    height: AppTheme.px(32)
    radius: AppTheme.px(8)
    color: "#E0101318"
    border.width: 1
    border.color: AppTheme.borderHi
    z: 300
    opacity: root.shown ? 1 : 0
    visible: root.opacity > 0

    Behavior on opacity {
        NumberAnimation { duration: 180 }
    }

    Timer {
        id: hideTimer
        interval: 4000
        onTriggered: root.shown = false
    }

    Connections {
        target: appController
        function onRecordingSaved(path) {
            if (!appController.recordingAvailable)
                return;
            root.path = path;
            root.shown = true;
            hideTimer.restart();
        }
    }

    Row {
        id: row
        anchors.centerIn: parent
        spacing: AppTheme.px(6)

        Text { text: "✓"; color: "#5FD87D"; font.pixelSize: AppTheme.px(11) }
        Text { text: qsTr("Recording saved"); color: AppTheme.text; font.pixelSize: AppTheme.px(11); font.family: AppTheme.fontFamily }
        Text { text: "·"; color: AppTheme.textMute; font.pixelSize: AppTheme.px(11) }
        Text {
            text: qsTr("Show in folder")
            color: AppTheme.accent
            font.pixelSize: AppTheme.px(11)
            font.family: AppTheme.fontFamily

            MouseArea {
                anchors.fill: parent
                cursorShape: Qt.PointingHandCursor
                onClicked: {
                    // Paused first, so that the file manager is not covered.
                    appController.setOverlayEnabled(false);
                    appController.revealInFolder(root.path);
                    root.shown = false;
                }
            }
        }
    }
}
