import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// Records a new sequence for one action. It covers the panel, takes the
// keyboard while open, consumes every key and names it by the editor's rule;
// "Save" stores the sequence, which moves the global registration at once.
// Combinations registered globally never get here: they run their action.
Item {
    id: root

    property string action
    property string label
    property string value
    // How the look writes the logo key: "Win", or "Super" on Linux.
    property string metaName: "Win"
    property color overlayColor: "#72000000"
    property color cardColor: AppTheme.winPopupBg
    property color lineColor: AppTheme.winBorder
    property color textColor: AppTheme.winText
    property color dimColor: AppTheme.winTextDim
    property color boxColor: AppTheme.winItemBg

    signal valueEdited(string value)
    signal finished()

    function takeKeyboard() {
        if (!root.visible)
            return;
        // The panel's window passes focus on only when asked.
        if (root.Window.window)
            root.Window.window.requestActivate();
        keyCatcher.forceActiveFocus();
    }

    function save() {
        if (root.value !== "")
            settingsManager.setHotkeyForAction(root.action, root.value);
        root.finished();
    }

    anchors.fill: parent
    visible: root.action !== ""
    onVisibleChanged: {
        if (root.visible)
            Qt.callLater(root.takeKeyboard); // qmllint disable type
    }

    Rectangle {
        anchors.fill: parent
        color: root.overlayColor
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        onClicked: root.finished()
        onWheel: wheel => wheel.accepted = true
    }

    Item {
        id: keyCatcher

        objectName: "hotkeyKeyCatcher"
        // Keys go to the editor before any shortcut of the program's windows.
        Keys.onShortcutOverride: event => event.accepted = true
        Keys.onPressed: event => {
            event.accepted = true;
            const result = SettingsLogic.editorKey(root.value, event.key, event.modifiers, root.metaName);
            if (result.close)
                root.finished();
            else if (result.value !== root.value)
                root.valueEdited(result.value);
        }
    }

    Rectangle {
        objectName: "hotkeyEditorCard"
        anchors.centerIn: parent
        width: AppTheme.px(360)
        height: content.implicitHeight + 2 * AppTheme.px(20)
        radius: AppTheme.px(12)
        color: root.cardColor
        border.width: 1
        border.color: root.lineColor

        // Clicks on the card stay on it.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
        }

        Column {
            id: content

            x: AppTheme.px(20)
            y: AppTheme.px(20)
            width: parent.width - 2 * AppTheme.px(20)
            spacing: AppTheme.px(10)

            Text {
                text: qsTranslate("SettingsWindow", "Edit hotkey")
                color: root.textColor
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeTitle
                font.weight: Font.DemiBold
            }
            Text {
                width: parent.width
                text: root.label
                color: root.dimColor
                elide: Text.ElideRight
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeBody
            }
            Rectangle {
                width: parent.width
                height: AppTheme.px(58)
                radius: AppTheme.px(8)
                color: root.boxColor
                border.width: 1
                border.color: AppTheme.accent

                Text {
                    objectName: "hotkeyEditorValue"
                    anchors.centerIn: parent
                    text: root.value !== "" ? root.value : qsTranslate("SettingsWindow", "Press shortcut")
                    color: root.value !== "" ? root.textColor : root.dimColor
                    font.family: root.value !== "" ? AppTheme.monoFamily : AppTheme.fontFamily
                    font.pixelSize: AppTheme.px(18)
                }
            }
            Row {
                anchors.right: parent.right
                spacing: AppTheme.px(8)

                PanelButton {
                    objectName: "hotkeyEditorCancel"
                    width: Math.max(implicitWidth, AppTheme.px(80))
                    height: AppTheme.px(32)
                    text: qsTranslate("SettingsWindow", "Cancel")
                    textColor: root.textColor
                    fillColor: root.boxColor
                    lineColor: root.lineColor
                    onClicked: root.finished()
                }
                PanelButton {
                    objectName: "hotkeyEditorSave"
                    width: Math.max(implicitWidth, AppTheme.px(80))
                    height: AppTheme.px(32)
                    text: qsTranslate("SettingsWindow", "Save")
                    primary: true
                    onClicked: root.save()
                }
            }
        }
    }
}
