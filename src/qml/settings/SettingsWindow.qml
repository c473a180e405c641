import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The settings panel of the Windows look: a sidebar of pages whose controls
// bind straight to the managers, with no copy and no apply step. Its content
// is built the first time it shows; the page follows requests even before.
Rectangle {
    id: root

    property int currentPage: 0
    property string hotkeyCaptureAction
    property string hotkeyCaptureLabel
    property string hotkeyCaptureValue
    property bool resetConfirmVisible: false
    readonly property var pages: [
        { id: "general", label: qsTranslate("SettingsWindow", "General"), icon: "settings", linuxOnly: false },
        { id: "spotlight", label: qsTranslate("SettingsWindow", "Spotlight"), icon: "spotlight", linuxOnly: false },
        { id: "drawing", label: qsTranslate("SettingsWindow", "Drawing"), icon: "pen", linuxOnly: false },
        { id: "effects", label: qsTranslate("SettingsWindow", "Click Effects"), icon: "circle", linuxOnly: false },
        { id: "keys", label: qsTranslate("SettingsWindow", "Keystrokes"), icon: "rectangle", linuxOnly: false },
        { id: "capture", label: qsTranslate("SettingsWindow", "Capture"), icon: "capture", linuxOnly: false },
        { id: "hotkeys", label: qsTranslate("SettingsWindow", "Hotkeys"), icon: "arrow", linuxOnly: false },
        { id: "displays", label: qsTranslate("SettingsWindow", "Displays"), icon: "clear", linuxOnly: false },
        { id: "portal", label: qsTranslate("SettingsWindow", "Portal access"), icon: "settings", linuxOnly: true }
    ]

    // The general page's "⋮" asks for the full list of languages.
    signal languagesRequested(Item anchor)

    function pageIndexForId(pageId: string): int {
        return SettingsLogic.pageIndex(root.pages, pageId);
    }

    // Page ids the panel does not know change nothing.
    function showPage(pageId: string) {
        const index = root.pageIndexForId(pageId);
        if (index >= 0)
            root.currentPage = index;
    }

    function editHotkey(action: string, label: string) {
        root.hotkeyCaptureLabel = label;
        root.hotkeyCaptureValue = settingsManager.hotkeyForAction(action);
        root.hotkeyCaptureAction = action;
    }

    width: AppTheme.settingsWidth
    height: AppTheme.settingsHeight
    radius: AppTheme.px(12)
    color: AppTheme.winBg
    border.width: 1
    border.color: AppTheme.winRootBorder
    clip: true
    onVisibleChanged: {
        if (root.visible && body.status === Loader.Null)
            body.setSource("SettingsWindowBody.qml", { "panel": root });
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
