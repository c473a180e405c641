import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The macOS look's hotkeys: read only, with the Mac's names for the modifiers.
MacPage {
    title: qsTr("Hotkeys")

    Repeater {
        model: [
            { action: "openSettings", label: qsTr("Open settings") }, { action: "cursor", label: qsTr("Cursor mode") },
            { action: "spotlight", label: qsTr("Spotlight") }, { action: "pen", label: qsTr("Pen") },
            { action: "arrow", label: qsTr("Arrow") }, { action: "rectangle", label: qsTr("Rectangle") },
            { action: "clear", label: qsTr("Clear annotations") }, { action: "quit", label: qsTr("Quit") }
        ]
        delegate: MacRow {
            id: row

            required property var modelData
            required property int index

            first: row.index === 0
            label: row.modelData.label

            Text {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: settingsManager.hotkeysRevision >= 0
                      ? SettingsLogic.macText(settingsManager.hotkeyForAction(row.modelData.action)) : ""
                color: "#6E6E73"
                font.family: AppTheme.monoFamily
                font.pixelSize: AppTheme.fontSizeBody
            }
        }
    }
}
