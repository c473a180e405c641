import QtQuick
import QtQuick.Controls
import GlimmoraApp

// The control display's window. It also holds the window shortcuts, which act
// while any window of the program has the keyboard focus, and reports each
// one to the keystroke display.
ApplicationWindow {
    id: root

    width: 1
    height: 1
    // The window manager code shows it once it is styled and placed: a window
    // first mapped as an ordinary one is taken over by a running window
    // manager, which does not let go of it cleanly.
    visible: false
    title: "Glimmora"
    color: overlayRoot.windowColor
    flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.Tool

    // Actions whose keys carry a command name on the keystroke card, in the
    // order in which a shared sequence is resolved.
    readonly property var commandLabels: [
        ["toggleOverlay", "Pause"], ["openSettings", "Settings"], ["cursor", "Cursor"],
        ["spotlight", "Spotlight"], ["pen", "Pen"], ["arrow", "Arrow"], ["rectangle", "Rect"],
        ["circle", "Ellipse"], ["highlighter", "Highlight"], ["eraser", "Eraser"],
        ["exitToCursor", "Cursor"], ["undo", "Undo"], ["redo", "Redo"], ["clear", "Clear"],
        ["quit", "Quit"]
    ]
    readonly property var penPalette: ["#F05D5D", "#F4C24A", "#5EC27A", "#5DA8F0", "#C57BE0", "#ECEEF2"]

    // The stored sequence of an action as Qt reads it ("Win" is Qt's "Meta").
    // Reads hotkeysRevision so that bindings follow a rebinding.
    function sequenceFor(action: string): string {
        const revision = settingsManager.hotkeysRevision;
        const text = revision >= 0 ? settingsManager.hotkeyForAction(action) : "";
        return text.split("+").map(part => part === "Win" ? "Meta" : part).join("+");
    }

    function commandLabel(combo: string): string {
        const revision = settingsManager.hotkeysRevision;
        if (revision < 0)
            return "";
        for (const entry of root.commandLabels) {
            if (settingsManager.hotkeyForAction(entry[0]) === combo)
                return entry[1];
        }
        return "";
    }

    function reportKeystroke(combo: string) {
        if (!settingsManager.keystrokesEnabled)
            return;
        // Command keys are always shown, whatever the class switches say.
        if (root.commandLabel(combo) !== "") {
            appController.reportKeystroke(combo);
            return;
        }
        const alphaNumeric = /^[A-Z0-9]$/.test(combo);
        const functionKey = /^F[0-9]+$/.test(combo);
        const navigation = combo === "Esc";
        const modified = combo.indexOf("+") >= 0;
        if ((alphaNumeric && settingsManager.showAlphaNumericKeys)
                || (functionKey && settingsManager.showFunctionKeys)
                || (navigation && settingsManager.showNavigationKeys)
                || (modified && settingsManager.showModifierKeys))
            appController.reportKeystroke(combo);
    }

    function reportCommand(action: string) {
        root.reportKeystroke(settingsManager.hotkeyForAction(action));
    }

    function nextPenColor(current: string): string {
        const lower = current.toLowerCase();
        const index = Math.max(0, root.penPalette.findIndex(c => c.toLowerCase() === lower));
        return root.penPalette[(index + 1) % root.penPalette.length];
    }

    // On Windows the window asks once for the system's dark title bar.
    Component.onCompleted: {
        if (AppTheme.isWindows && winAcrylic)
            winAcrylic.applyDarkTitleBar(root);
    }

    OverlayRoot {
        id: overlayRoot
    }

    // Inline components cannot reach the document's ids, so the stored
    // sequence is read here directly, with "Win" spelled as Qt's "Meta".
    component ActionShortcut: Shortcut {
        id: shortcut
        required property string action
        context: Qt.ApplicationShortcut
        sequence: settingsManager.hotkeysRevision >= 0
                  ? settingsManager.hotkeyForAction(shortcut.action).split("+")
                    .map(part => part === "Win" ? "Meta" : part).join("+")
                  : ""
    }

    function useTool(action: string) {
        appController.setTool(action);
        root.reportCommand(action);
    }

    ActionShortcut {
        action: "toggleOverlay"
        onActivated: {
            appController.toggleOverlay();
            root.reportCommand(action);
        }
    }
    ActionShortcut {
        action: "openSettings"
        onActivated: {
            appController.showSettings();
            root.reportCommand(action);
        }
    }
    ActionShortcut { action: "cursor"; onActivated: root.useTool(action) }
    ActionShortcut { action: "spotlight"; onActivated: root.useTool(action) }
    ActionShortcut { action: "pen"; onActivated: root.useTool(action) }
    ActionShortcut { action: "arrow"; onActivated: root.useTool(action) }
    ActionShortcut { action: "rectangle"; onActivated: root.useTool(action) }
    ActionShortcut { action: "circle"; onActivated: root.useTool(action) }
    ActionShortcut { action: "highlighter"; onActivated: root.useTool(action) }
    ActionShortcut { action: "eraser"; onActivated: root.useTool(action) }
    ActionShortcut {
        action: "exitToCursor"
        // Empty while a region is being picked: the region overlay keeps Esc.
        sequence: appController.regionSelecting ? "" : root.sequenceFor(action)
        // The observed key acts already, whichever window has the focus.
        enabled: !hotkeyManager || !hotkeyManager.commandKeysActive
        onActivated: {
            const closesLens = appController.magnifierEnabled;
            appController.exitToCursor();
            if (!closesLens)
                root.reportCommand(action);
        }
    }
    ActionShortcut {
        action: "undo"
        onActivated: {
            if (drawingModel && settingsManager.undoRedoEnabled)
                drawingModel.undoLastStroke();
            root.reportCommand(action);
        }
    }
    ActionShortcut {
        action: "redo"
        onActivated: {
            if (drawingModel && settingsManager.undoRedoEnabled)
                drawingModel.redoLastStroke();
            root.reportCommand(action);
        }
    }
    ActionShortcut {
        action: "clear"
        onActivated: {
            appController.clearDrawing();
            root.reportCommand(action);
        }
    }
    ActionShortcut {
        action: "quit"
        onActivated: {
            appController.requestQuit();
            root.reportCommand(action);
        }
    }
    Shortcut {
        context: Qt.ApplicationShortcut
        sequence: "["
        onActivated: {
            settingsManager.setBrushSize(Math.max(1, settingsManager.brushSize - 1));
            root.reportKeystroke("[");
        }
    }
    Shortcut {
        context: Qt.ApplicationShortcut
        sequence: "]"
        onActivated: {
            settingsManager.setBrushSize(Math.min(32, settingsManager.brushSize + 1));
            root.reportKeystroke("]");
        }
    }
    Shortcut {
        context: Qt.ApplicationShortcut
        sequence: "C"
        onActivated: {
            appController.setCurrentPenColor(root.nextPenColor(appController.currentPenColor));
            root.reportKeystroke("C");
        }
    }
}
