import QtQuick

// Stand-in for SettingsManager with the values the drawing layers read.
QtObject {
    id: root

    property real uiScale: 1.0
    property int windowsTheme: 2
    property int linuxTheme: 2
    property int brushSize: 4
    property int strokeSmoothing: 2
    property bool undoRedoEnabled: true
    property bool mirrorAnnotationsAcrossDisplays: false
    property bool clickRippleEnabled: true
    property string leftClickColor: "#F4A65A"
    property string rightClickColor: "#5DA8F0"
    property string middleClickColor: "#5EC27A"
    property int rippleSize: 48
    property int rippleDuration: 550
    property int hotkeysRevision: 0
    property var hotkeys: ({})

    function hotkeyForAction(actionId: string): string {
        return root.hotkeys[actionId] || "";
    }
}
