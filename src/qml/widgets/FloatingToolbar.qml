import QtQuick
import QtQuick.Layouts
import GlimmoraApp

// The one control strip of the overlay. It acts only through appController,
// settingsManager and drawingModel and owns no state of theirs.
Item {
    id: root

    signal quitRequested()
    signal dragMoveTo(real toolbarWindowX, real toolbarWindowY, real globalCursorX, real globalCursorY)
    signal dragFinished(bool committed)

    readonly property int hotkeysRevision: settingsManager.hotkeysRevision
    readonly property string iconBase: "qrc:/qt/qml/GlimmoraApp/src/assets/icons/"
    readonly property var tools: ["cursor", "spotlight", "pen", "arrow", "rectangle", "circle", "highlighter"]
    readonly property var colorPalette: [AppTheme.red, AppTheme.yellow, AppTheme.green, AppTheme.blue,
                                         AppTheme.magenta, AppTheme.text]
    readonly property bool magnifierAvailable: appController.magnifierAvailable
    // The menus always count as 142 high, so that a click on an open menu
    // reaches it through the click-through test.
    readonly property int captureRecordMenuExtraHeight: captureMenu.open
                                                        || (appController.recordingAvailable && recordMenu.open) ? 142 : 0
    readonly property real pauseMenuExtent: pauseMenu.visible ? AppTheme.px(8) + pauseMenu.height : 0
    readonly property rect toolbarRect: Qt.rect(Math.min(pill.x, handle.x) + root.x, handle.y + root.y,
                                                Math.max(pill.x + pill.width, handle.x + handle.width) - Math.min(pill.x, handle.x),
                                                pill.y + pill.height - handle.y + root.pauseMenuExtent
                                                + root.captureRecordMenuExtraHeight)
    readonly property rect toastRect: savedToast.opacity > 0
                                      ? Qt.rect(savedToast.x + root.x, savedToast.y + root.y, savedToast.width, savedToast.height)
                                      : Qt.rect(0, 0, 0, 0)

    function normalizedColor(value) {
        return value ? value.toString().toLowerCase() : "";
    }

    function shortcutLabel(actionId) {
        const seq = root.hotkeysRevision >= 0 ? settingsManager.hotkeyForAction(actionId) : "";
        return AppTheme.isLinux ? seq.replace("Win", "Super") : seq;
    }

    function closeMenus() {
        captureMenu.open = false;
        recordMenu.open = false;
    }

    function menuX(button: Item, menu: ToolbarMenu): real {
        const x = button.mapToItem(root, 0, 0).x;
        return Math.max(pill.x, Math.min(x, pill.x + pill.width - menu.panelWidth));
    }

    width: pill.width + AppTheme.px(20)
    height: pill.height + AppTheme.px(22) + root.pauseMenuExtent + root.captureRecordMenuExtraHeight

    Behavior on height {
        NumberAnimation { duration: AppTheme.durationNormal; easing.type: Easing.OutCubic }
    }

    Rectangle {
        id: pill
        objectName: "toolbarPill"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: AppTheme.px(14)
        height: AppTheme.toolbarChromeHeight
        width: row.implicitWidth + AppTheme.px(12)
        radius: AppTheme.cornerRadius
        color: "#EB14171C"
        border.width: 1
        border.color: AppTheme.borderHi

        RowLayout {
            id: row
            anchors.centerIn: parent
            spacing: AppTheme.px(4)

            PauseButton {
                shortcutText: root.shortcutLabel("toggleOverlay")
                onMenuRequested: pauseMenu.open = true
            }
            ToolbarSeparator {}
            Repeater {
                model: root.tools
                delegate: ToolbarButton {
                    id: toolButton
                    required property string modelData
                    objectName: "tool-" + toolButton.modelData
                    iconSrc: "qrc:/qt/qml/GlimmoraApp/src/assets/icons/" + toolButton.modelData + ".svg"
                    active: appController.overlayEnabled && appController.currentTool === toolButton.modelData
                    onClicked: {
                        const wasPaused = !appController.overlayEnabled;
                        appController.setTool(toolButton.modelData);
                        // Picking a tool wakes a paused overlay.
                        if (wasPaused)
                            appController.toggleOverlay();
                    }
                }
            }
            ToolbarSeparator {}
            Repeater {
                model: root.colorPalette
                delegate: ColorSwatch {
                    id: swatch
                    required property color modelData
                    required property int index
                    objectName: "swatch-" + swatch.index
                    swatchColor: swatch.modelData
                    current: appController.currentPenColor.toLowerCase() === swatch.modelData.toString().toLowerCase()
                    onPicked: appController.setCurrentPenColor(swatch.modelData.toString().toUpperCase())
                }
                onItemAdded: function (index, item) {
                    item.paletteRequested.connect(function (x, y) {
                        const p = item.mapToItem(root, x, y);
                        palette.popup(p.x, p.y);
                    });
                }
            }
            ToolbarSeparator {}
            SizeScrubber {
                objectName: "sizeScrubber"
            }
            ToolbarSeparator {}
            ToolbarButton {
                objectName: "magnifierButton"
                visible: root.magnifierAvailable
                iconSrc: root.iconBase + "magnifier.svg"
                toolTip: qsTr("Magnifier lens")
                active: appController.magnifierEnabled
                onClicked: {
                    root.closeMenus();
                    appController.toggleMagnifier();
                }
            }
            ToolbarSeparator { visible: root.magnifierAvailable }
            ToolbarButton {
                objectName: "undoButton"
                iconSrc: root.iconBase + "undo.svg"
                toolTip: qsTr("Undo  %1").arg(root.shortcutLabel("undo"))
                tbEnabled: settingsManager.undoRedoEnabled && drawingModel && drawingModel.canUndo
                onClicked: drawingModel.undoLastStroke()
            }
            ToolbarButton {
                iconSrc: root.iconBase + "clear.svg"
                toolTip: qsTr("Clear all  %1").arg(root.shortcutLabel("clear"))
                onClicked: appController.clearDrawing()
            }
            ToolbarSeparator {}
            CaptureButton {
                id: captureButton
                menuOpen: captureMenu.open
                onClicked: {
                    recordMenu.open = false;
                    captureMenu.open = !captureMenu.open;
                }
            }
            RecordSlot {
                id: recordSlot
                objectName: "recordSlot"
                visible: appController.recordingAvailable
                menuOpen: recordMenu.open
                onMenuToggleRequested: {
                    captureMenu.open = false;
                    recordMenu.open = !recordMenu.open;
                }
            }
        }
    }

    ToolbarDragHandle {
        id: handle
        toolbar: root
        anchors.horizontalCenter: pill.horizontalCenter
        anchors.top: parent.top
        z: 10
        onDragMoveTo: function (x, y, gx, gy) { root.dragMoveTo(x, y, gx, gy); }
        onDragFinished: function (committed) { root.dragFinished(committed); }
    }

    // Under the open pause menu, above the rest of the toolbar: a press
    // anywhere else on the toolbar closes it.
    MouseArea {
        objectName: "pauseMenuBackdrop"
        z: 20
        anchors.fill: parent
        visible: pauseMenu.open
        acceptedButtons: Qt.AllButtons
        onPressed: pauseMenu.open = false
    }

    PauseMenu {
        id: pauseMenu

        objectName: "pauseMenu"
        z: 21
        anchors.top: pill.bottom
        anchors.topMargin: AppTheme.px(8)
        anchors.left: pill.left
        onQuitRequested: root.quitRequested()
    }

    RecordingSavedToast {
        id: savedToast
        anchors.top: pill.bottom
        anchors.topMargin: AppTheme.px(10)
        anchors.horizontalCenter: pill.horizontalCenter
    }

    ToolbarCaptureMenu {
        id: captureMenu
        panelX: root.menuX(captureButton, captureMenu)
        panelY: pill.y + pill.height + AppTheme.px(6)
    }

    ToolbarRecordMenu {
        id: recordMenu
        panelX: root.menuX(recordSlot, recordMenu)
        panelY: pill.y + pill.height + AppTheme.px(6)
    }

    ExtendedPalette {
        id: palette
    }
}
