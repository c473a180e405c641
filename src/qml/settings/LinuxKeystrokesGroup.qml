import QtQuick
import GlimmoraApp

// The keystroke display's switches in the Linux look.
AdwGroup {
    title: qsTr("Keystrokes")
    footer: qsTr("Keystrokes never leave your device. By default only modifiers, function keys, and navigation are shown.")

    AdwRow {
        first: true
        label: qsTr("Show keystrokes")

        AdwSwitch {
            checked: settingsManager.keystrokesEnabled
            onToggled: checked => settingsManager.setKeystrokesEnabled(checked)
        }
    }
    AdwRow {
        label: qsTr("Show modifiers")
        subtitle: qsTr("Ctrl, Alt, Shift + key combos")

        AdwSwitch {
            checked: settingsManager.showModifierKeys
            onToggled: checked => settingsManager.setShowModifierKeys(checked)
        }
    }
    AdwRow {
        label: qsTr("Show function keys")
        subtitle: qsTr("F1 - F12")

        AdwSwitch {
            checked: settingsManager.showFunctionKeys
            onToggled: checked => settingsManager.setShowFunctionKeys(checked)
        }
    }
    AdwRow {
        label: qsTr("Show navigation")
        subtitle: qsTr("Arrows, Esc, Tab, Enter, Backspace")

        AdwSwitch {
            checked: settingsManager.showNavigationKeys
            onToggled: checked => settingsManager.setShowNavigationKeys(checked)
        }
    }
    AdwRow {
        label: qsTr("Show letters & numbers")
        subtitle: qsTr("Reveals normal typing")

        AdwSwitch {
            checked: settingsManager.showAlphaNumericKeys
            onToggled: checked => settingsManager.setShowAlphaNumericKeys(checked)
        }
    }
    AdwRow {
        label: qsTr("Position")

        AdwChoice {
            chipWidth: AppTheme.px(108)
            options: [qsTr("Bottom-left"), qsTr("Bottom-center"), qsTr("Bottom-right")]
            activeIndex: settingsManager.keystrokePosition
            onPicked: index => settingsManager.setKeystrokePosition(index)
        }
    }
    AdwRow {
        label: qsTr("Fade duration")

        AdwSlider {
            from: 500
            to: 4000
            value: settingsManager.keystrokeFadeMs
            readout: settingsManager.keystrokeFadeMs + " ms"
            onMoved: value => settingsManager.setKeystrokeFadeMs(Math.round(value))
        }
    }
    AdwRow {
        label: qsTr("Mute in password fields")
        subtitle: qsTr("Detected via OS focus hints.")

        AdwSwitch {
            checked: settingsManager.muteKeystrokesInPasswordFields
            onToggled: checked => settingsManager.setMuteKeystrokesInPasswordFields(checked)
        }
    }
}
