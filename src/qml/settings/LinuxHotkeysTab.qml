import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The Linux look's hotkeys: every action with its keys, where "Win" reads
// "Super", and the way back to the defaults.
PanelPage {
    id: root

    required property SettingsWindowLinux panel

    margins: AppTheme.px(20)
    spacing: AppTheme.px(18)

    AdwGroup {
        footer: appController.linuxPortalRequired
                ? qsTr("Wayland: global hotkeys require xdg-desktop-portal with GlobalShortcuts interface (≥ 1.9).")
                : qsTr("Tip: function keys (F2–F6) avoid conflicts with most apps.")

        Repeater {
            model: settingsManager.hotkeyActionList()

            // Qt 6.4's linter does not see this document's ids inside a delegate.
            // qmllint disable unqualified
            delegate: AdwRow {
                id: row

                required property var modelData
                required property int index
                readonly property string action: row.modelData.action

                objectName: "hotkeyRow-" + row.action
                first: row.index === 0
                label: row.action === "openSettings" ? qsTr("Open preferences") : qsTr(row.modelData.label)

                HotkeyControls {
                    action: row.action
                    readSequence: sequence => SettingsLogic.linuxText(sequence)
                    capFill: AppTheme.linuxControlFill
                    capLine: AppTheme.linuxControlLine
                    textColor: AppTheme.linuxText
                    conflictText: "#B91C1C"
                    conflictFill: "#FFD7D7"
                    onEditRequested: root.panel.editHotkey(row.action, row.label)
                }
            }
            // qmllint enable unqualified
        }

        Item {
            width: parent.width
            height: AppTheme.px(48)

            Rectangle {
                width: parent.width
                height: 1
                color: AppTheme.linuxBorderSubtle
            }
            Text {
                anchors.centerIn: parent
                text: qsTr("Reset to defaults")
                color: AppTheme.accent
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeBody
                font.weight: Font.Medium
            }
            MouseArea {
                objectName: "resetHotkeys"
                anchors.fill: parent
                cursorShape: Qt.PointingHandCursor
                onClicked: settingsManager.resetHotkeys()
            }
        }
    }
}
