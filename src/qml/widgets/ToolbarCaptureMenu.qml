import QtQuick
import GlimmoraApp

ToolbarMenu {
    id: root

    function shortcutLabel(action) {
        const seq = settingsManager.hotkeysRevision >= 0 ? settingsManager.hotkeyForAction(action) : "";
        return AppTheme.isLinux ? seq.replace("Win", "Super") : seq;
    }
    readonly property string iconBase: "qrc:/qt/qml/GlimmoraApp/src/assets/icons/"

    CtxItem {
        width: root.panelWidth - AppTheme.px(12)
        label: qsTr("Rectangle snip")
        iconSource: root.iconBase + "snip-rectangle.svg"
        shortcut: root.shortcutLabel("captureRegion")
        onTriggered: {
            root.open = false;
            appController.captureRegion();
        }
    }
    CtxItem {
        width: root.panelWidth - AppTheme.px(12)
        label: qsTr("Window snip")
        iconSource: root.iconBase + "snip-window.svg"
        disabled: true
    }
    CtxItem {
        width: root.panelWidth - AppTheme.px(12)
        label: qsTr("Full screen snip")
        iconSource: root.iconBase + "snip-fullscreen.svg"
        shortcut: root.shortcutLabel("captureFullScreen")
        onTriggered: {
            root.open = false;
            appController.captureFullScreen();
        }
    }
}
