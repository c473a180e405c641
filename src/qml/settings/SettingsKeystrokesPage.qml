import QtQuick
import GlimmoraApp

// The Windows look's keystroke display: which keys show, where and how long.
SettingsPage {
    title: qsTranslate("SettingsWindow", "Keystrokes")
    subtitle: qsTranslate("SettingsWindow", "Show keys on screen - privacy-first by default.")

    Rectangle {
        width: parent.width
        height: bannerText.implicitHeight + AppTheme.px(24)
        radius: AppTheme.px(10)
        color: "#18F4A65A"
        border.width: 1
        border.color: "#30F4A65A"

        Text {
            id: bannerTag

            x: AppTheme.px(14)
            y: AppTheme.px(12)
            text: qsTranslate("SettingsWindow", "LOCAL")
            color: AppTheme.accent
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
            font.weight: Font.Bold
        }
        Text {
            id: bannerText

            anchors.left: bannerTag.right
            anchors.leftMargin: AppTheme.px(10)
            anchors.right: parent.right
            anchors.rightMargin: AppTheme.px(14)
            y: AppTheme.px(12)
            text: qsTranslate("SettingsWindow", "Keystrokes never leave your device. By default Glimmora only displays modifiers, function keys, and navigation - never plain text input.")
            wrapMode: Text.Wrap
            color: "#BFA882"
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
        }
    }

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Show keystrokes")

            SettingsSwitch {
                checked: settingsManager.keystrokesEnabled
                onToggled: checked => settingsManager.setKeystrokesEnabled(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Show modifiers")
            subText: qsTranslate("SettingsWindow", "Ctrl, Alt, Shift + key combos")

            SettingsSwitch {
                checked: settingsManager.showModifierKeys
                onToggled: checked => settingsManager.setShowModifierKeys(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Show function keys")
            subText: qsTranslate("SettingsWindow", "F1 - F12")

            SettingsSwitch {
                checked: settingsManager.showFunctionKeys
                onToggled: checked => settingsManager.setShowFunctionKeys(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Show navigation")
            subText: qsTranslate("SettingsWindow", "Arrows, Esc, Tab, Enter, Backspace")

            SettingsSwitch {
                checked: settingsManager.showNavigationKeys
                onToggled: checked => settingsManager.setShowNavigationKeys(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Show letters & numbers")
            subText: qsTranslate("SettingsWindow", "Reveals normal typing. Glimmora command shortcuts are always shown.")

            SettingsSwitch {
                checked: settingsManager.showAlphaNumericKeys
                onToggled: checked => settingsManager.setShowAlphaNumericKeys(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Position")

            SettingsChoice {
                chipWidth: AppTheme.px(108)
                options: [qsTranslate("SettingsWindow", "Bottom-left"), qsTranslate("SettingsWindow", "Bottom-center"),
                    qsTranslate("SettingsWindow", "Bottom-right")]
                activeIndex: settingsManager.keystrokePosition
                onPicked: index => settingsManager.setKeystrokePosition(index)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Fade duration")

            SettingsSlider {
                from: 500
                to: 4000
                value: settingsManager.keystrokeFadeMs
                readout: settingsManager.keystrokeFadeMs + " ms"
                onMoved: value => settingsManager.setKeystrokeFadeMs(Math.round(value))
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Mute in password fields")
            subText: qsTranslate("SettingsWindow", "Detected via OS focus hints.")

            SettingsSwitch {
                checked: settingsManager.muteKeystrokesInPasswordFields
                onToggled: checked => settingsManager.setMuteKeystrokesInPasswordFields(checked)
            }
        }
    }
}
