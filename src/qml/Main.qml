import QtQuick
import QtQuick.Controls

ApplicationWindow {
    id: root

    width: 1
    height: 1
    visible: true
    title: "Glimmora"
    color: "transparent"
    flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.Tool
}
