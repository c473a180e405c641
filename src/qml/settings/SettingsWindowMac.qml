import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The settings panel of the macOS look: a fixed light look of its own, with
// its own choice of settings and ranges, whatever theme the other looks use.
// Its content is built the first time it shows.
Rectangle {
    id: root

    property int currentPage: 0
    readonly property var pages: [
        { id: "general", label: qsTr("General") }, { id: "spotlight", label: qsTr("Spotlight") },
        { id: "drawing", label: qsTr("Drawing") }, { id: "effects", label: qsTr("Click Effects") },
        { id: "keys", label: qsTr("Keystrokes") }, { id: "permissions", label: qsTr("Permissions") },
        { id: "hotkeys", label: qsTr("Hotkeys") }, { id: "displays", label: qsTr("Displays") }
    ]

    // Page ids the panel does not know change nothing.
    function showPage(pageId: string) {
        const index = SettingsLogic.pageIndex(root.pages, pageId);
        if (index >= 0)
            root.currentPage = index;
    }

    width: AppTheme.settingsWidth
    height: AppTheme.settingsHeight
    radius: AppTheme.px(18)
    color: "#F7F7F8"
    border.width: 1
    border.color: "#1A000000"
    clip: true
    onVisibleChanged: {
        if (root.visible && body.status === Loader.Null)
            body.setSource("SettingsWindowMacBody.qml", { "panel": root });
    }

    Connections {
        target: appController

        function onSettingsPageRequested(pageId: string) {
            root.showPage(pageId);
        }
    }

    // Clicks and wheel turns over the panel end here, whatever lies below.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        onWheel: wheel => wheel.accepted = true
    }

    // Built the first time the panel shows.
    Loader {
        id: body

        anchors.fill: parent
    }
}
