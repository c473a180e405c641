import QtQuick

// The macOS look's keystroke display.
MacPage {
    title: qsTr("Keystrokes")

    MacRow {
        first: true
        label: qsTr("Enable keystroke HUD")

        MacSwitch {
            checked: settingsManager.keystrokesEnabled
            onToggled: checked => settingsManager.setKeystrokesEnabled(checked)
        }
    }
    MacRow {
        label: qsTr("Modifier keys")

        MacSwitch {
            checked: settingsManager.showModifierKeys
            onToggled: checked => settingsManager.setShowModifierKeys(checked)
        }
    }
    MacRow {
        label: qsTr("Function keys")

        MacSwitch {
            checked: settingsManager.showFunctionKeys
            onToggled: checked => settingsManager.setShowFunctionKeys(checked)
        }
    }
    MacRow {
        label: qsTr("Navigation keys")

        MacSwitch {
            checked: settingsManager.showNavigationKeys
            onToggled: checked => settingsManager.setShowNavigationKeys(checked)
        }
    }
    MacRow {
        label: qsTr("Alpha numeric keys")

        MacSwitch {
            checked: settingsManager.showAlphaNumericKeys
            onToggled: checked => settingsManager.setShowAlphaNumericKeys(checked)
        }
    }
    MacRow {
        label: qsTr("Password fields privacy")

        MacSwitch {
            checked: settingsManager.muteKeystrokesInPasswordFields
            onToggled: checked => settingsManager.setMuteKeystrokesInPasswordFields(checked)
        }
    }
    MacRow {
        label: qsTr("Fade delay")

        MacSlider {
            from: 500
            to: 5000
            value: settingsManager.keystrokeFadeMs
            readout: settingsManager.keystrokeFadeMs + " ms"
            onMoved: value => settingsManager.setKeystrokeFadeMs(Math.round(value))
        }
    }
}
