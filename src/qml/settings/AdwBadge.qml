import QtQuick
import GlimmoraApp

// A status pill of the Linux look: "ok" in green, "warn" in amber.
Rectangle {
    id: root

    property string text
    property string status: "ok"
    readonly property bool ok: root.status === "ok"

    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    width: label.implicitWidth + AppTheme.px(20)
    height: AppTheme.px(22)
    radius: height / 2
    color: AppTheme.linuxIsDark ? (root.ok ? "#1A3D27" : "#3A2C00") : (root.ok ? "#D4EDDA" : "#FFF3CD")

    Text {
        id: label

        anchors.centerIn: parent
        text: root.text
        color: AppTheme.linuxIsDark ? (root.ok ? "#4ADE80" : "#FBD44A") : (root.ok ? "#155724" : "#856404")
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeCaption
        font.weight: Font.Medium
    }
}
