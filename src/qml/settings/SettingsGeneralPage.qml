import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The Windows look's general page: start-up, chrome, language and theme.
SettingsPage {
    id: root

    readonly property var scales: [0.9, 1.0, 1.2, 1.35, 1.5]
    readonly property var languageCodes: ["en", "zh-CN", "ja", "vi"]

    required property SettingsWindow panel

    title: qsTranslate("SettingsWindow", "General")
    subtitle: qsTranslate("SettingsWindow", "App-wide behaviour and startup options.")

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Start with Windows")
            subText: qsTranslate("SettingsWindow", "Launch Glimmora on login")

            SettingsSwitch {
                checked: settingsManager.launchAtLogin
                onToggled: checked => settingsManager.setLaunchAtLogin(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Start minimised")
            subText: qsTranslate("SettingsWindow", "Begin paused, no overlay shown")

            SettingsSwitch {
                checked: settingsManager.startMinimized
                onToggled: checked => settingsManager.setStartMinimized(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Show in taskbar")

            SettingsSwitch {
                checked: settingsManager.showInTaskbar
                onToggled: checked => settingsManager.setShowInTaskbar(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Always show controls")
            subText: qsTranslate("SettingsWindow", "Off: reveal toolbar, Try it, and status from the top edge")

            SettingsSwitch {
                objectName: "alwaysShowControls"
                checked: settingsManager.overlayControlsAlwaysVisible
                onToggled: checked => settingsManager.setOverlayControlsAlwaysVisible(checked)
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Pause when sharing screen")
            subText: qsTranslate("SettingsWindow", "Auto-hide overlay during screen share")

            // Shown only: no setting stands behind it.
            SettingsSwitch {
                id: shareSwitch

                onToggled: checked => shareSwitch.checked = checked
            }
        }
    }

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Interface size")
            subText: qsTranslate("SettingsWindow", "Adjust toolbar, menus, dialogs, and settings.")

            SettingsChoice {
                objectName: "uiScaleChips"
                options: ["90%", "100%", "120%", "135%", "150%"]
                activeIndex: root.scales.findIndex(scale => SettingsLogic.scaleChipActive(settingsManager.uiScale,
                                                                                           scale))
                onPicked: index => settingsManager.setUiScale(root.scales[index])
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Language")

            Row {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                spacing: AppTheme.px(6)

                ChipChoice {
                    objectName: "languageChips"
                    options: ["EN", "ZH-CN", "JA", "VI"]
                    activeIndex: root.languageCodes.indexOf(settingsManager.language)
                    onPicked: index => settingsManager.setLanguage(root.languageCodes[index])
                }
                PanelChip {
                    id: moreLanguages

                    objectName: "moreLanguages"
                    text: "⋮"
                    onClicked: root.panel.languagesRequested(moreLanguages)
                }
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Theme")

            SettingsChoice {
                options: [qsTranslate("SettingsWindow", "Dark"), qsTranslate("SettingsWindow", "Light"),
                    qsTranslate("SettingsWindow", "System")]
                activeIndex: settingsManager.windowsTheme
                onPicked: index => settingsManager.setWindowsTheme(index)
            }
        }
    }

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Send analytics")
            subText: qsTranslate("SettingsWindow", "Anonymous usage statistics")

            SettingsSwitch {
                id: analyticsSwitch

                checked: true
                onToggled: checked => analyticsSwitch.checked = checked
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Send crash reports")
            subText: qsTranslate("SettingsWindow", "Auto-submit crash diagnostics")

            SettingsSwitch {
                id: crashSwitch

                checked: true
                onToggled: checked => crashSwitch.checked = checked
            }
        }
    }

    Row {
        spacing: AppTheme.px(10)

        // Nothing to check against: the button is for the look.
        PanelButton {
            text: qsTranslate("SettingsWindow", "Check for updates")
        }
        PanelButton {
            objectName: "resetAllSettings"
            text: qsTranslate("SettingsWindow", "Reset all settings")
            textColor: "#E05D5D"
            onClicked: root.panel.resetConfirmVisible = true
        }
    }
}
