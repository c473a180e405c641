import QtQuick

// Stand-in for SettingsManager with the first-run defaults, except that the
// welcome card has been answered, and with the default hotkey map.
QtObject {
    id: root

    property real uiScale: 1.2
    property int windowsTheme: 2
    property int linuxTheme: 2
    property int rippleSize: 48
    property int rippleDuration: 550
    property string leftClickColor: "#F4A65A"
    property string rightClickColor: "#5DA8F0"
    property string middleClickColor: "#5EC27A"
    property bool clickRippleEnabled: true
    property int brushSize: 4
    property int strokeSmoothing: 2
    property bool undoRedoEnabled: true
    property bool mirrorAnnotationsAcrossDisplays: false
    property bool overlayControlsAlwaysVisible: false
    property int keystrokePosition: 1
    property bool firstRunDone: true
    property bool confirmQuit: true
    property int hotkeysRevision: 0
    property var hotkeys: ({
                               "toggleOverlay": "F5",
                               "openSettings": "F6",
                               "spotlight": "Alt+2",
                               "exitToCursor": "Esc",
                               "undo": "Ctrl+Z",
                               "captureRegion": "Ctrl+Shift+A",
                               "captureFullScreen": "Ctrl+Shift+S",
                               "quit": "Ctrl+Shift+Q"
                           })

    function hotkeyForAction(action: string): string {
        return root.hotkeys.hasOwnProperty(action) ? root.hotkeys[action] : "";
    }

    function setFirstRunDone(done: bool) {
        root.firstRunDone = done;
    }
}
