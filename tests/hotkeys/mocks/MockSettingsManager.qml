import QtQuick

// Stand-in for SettingsManager: the keystroke switches and the hotkey map.
QtObject {
    id: root

    readonly property var defaultHotkeys: ({
            toggleOverlay: "F5",
            openSettings: "F6",
            cursor: "Alt+1",
            spotlight: "Alt+2",
            pen: "Alt+3",
            arrow: "Alt+4",
            rectangle: "Alt+5",
            circle: "Alt+6",
            highlighter: "Alt+7",
            eraser: "Alt+8",
            exitToCursor: "Esc",
            undo: "Ctrl+Z",
            redo: "Ctrl+Shift+Z",
            clear: "Ctrl+Shift+K",
            captureRegion: "Ctrl+Shift+A",
            captureFullScreen: "Ctrl+Shift+S",
            quit: "Ctrl+Shift+Q"
        })

    property real uiScale: 1.2
    property int windowsTheme: 2
    property int linuxTheme: 2
    property bool keystrokesEnabled: true
    property int keystrokeFadeMs: 1500
    property int hotkeysRevision: 0
    property var hotkeys: Object.assign({}, root.defaultHotkeys)

    function hotkeyForAction(action: string): string {
        return root.hotkeys[action] || "";
    }

    function setHotkeyForAction(action: string, sequence: string) {
        const map = Object.assign({}, root.hotkeys);
        map[action] = sequence;
        root.hotkeys = map;
        root.hotkeysRevision += 1;
    }

    function resetHotkeys() {
        root.hotkeys = Object.assign({}, root.defaultHotkeys);
        root.hotkeysRevision += 1;
    }
}
