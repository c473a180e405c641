import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The Windows look's hotkeys: every action with its keys, conflicts as the
// system reports them, an editor per row, and the way back to the defaults.
SettingsPage {
    id: root

    required property SettingsWindow panel

    title: qsTranslate("SettingsWindow", "Hotkeys")
    subtitle: qsTranslate("SettingsWindow", "Customize keyboard shortcuts. Glimmora detects conflicts with running apps.")

    SettingsCard {
        Repeater {
            model: settingsManager.hotkeyActionList()

            // Qt 6.4's linter does not see this document's ids inside a delegate.
            // qmllint disable unqualified
            delegate: Item {
                id: row

                required property var modelData
                required property int index
                readonly property string action: row.modelData.action
                readonly property string label: qsTranslate("SettingsWindow", row.modelData.label)

                objectName: "hotkeyRow-" + row.action
                width: parent.width
                height: AppTheme.px(44)

                Text {
                    x: AppTheme.px(18)
                    anchors.verticalCenter: parent.verticalCenter
                    text: row.label
                    color: AppTheme.winText
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.px(14)
                }
                Item {
                    anchors.right: parent.right
                    anchors.rightMargin: AppTheme.px(18)
                    height: parent.height

                    HotkeyControls {
                        action: row.action
                        readSequence: sequence => AppTheme.isLinux ? SettingsLogic.linuxText(sequence) : sequence
                        onEditRequested: root.panel.editHotkey(row.action, row.label)
                    }
                }
                Rectangle {
                    visible: row.index > 0
                    width: parent.width
                    height: 1
                    color: AppTheme.winLine
                }
            }
            // qmllint enable unqualified
        }
    }

    Text {
        text: qsTranslate("SettingsWindow", "Tip: function keys (F2-F6) avoid common app shortcuts.")
        color: AppTheme.winTextMute
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeCaption
    }

    PanelButton {
        objectName: "resetHotkeys"
        text: qsTranslate("SettingsWindow", "Reset to defaults")
        onClicked: settingsManager.resetHotkeys()
    }
}
