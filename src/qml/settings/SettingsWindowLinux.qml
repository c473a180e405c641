import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The settings panel of the Linux look, in the manner of a desktop
// preferences dialog: five tabs of grouped rows bound straight to the
// managers, with no copy and no apply step. Its content is built the first
// time it shows; the tab follows page requests even before that.
Rectangle {
    id: root

    property int currentTab: 0
    property string hotkeyCaptureAction
    property string hotkeyCaptureLabel
    property string hotkeyCaptureValue

    // Page ids the look does not know change nothing.
    function showPage(pageId: string) {
        const tab = SettingsLogic.linuxTabFor(pageId);
        if (tab >= 0)
            root.currentTab = tab;
    }

    function editHotkey(action: string, label: string) {
        root.hotkeyCaptureLabel = label;
        root.hotkeyCaptureValue = SettingsLogic.linuxText(settingsManager.hotkeyForAction(action));
        root.hotkeyCaptureAction = action;
    }

    width: AppTheme.linuxSettingsWidth
    height: AppTheme.px(680)
    radius: AppTheme.px(12)
    color: AppTheme.linuxBg
    border.width: 1
    border.color: AppTheme.linuxHeaderBorder
    onVisibleChanged: {
        if (root.visible && body.status === Loader.Null)
            body.setSource("SettingsWindowLinuxBody.qml", { "panel": root });
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
