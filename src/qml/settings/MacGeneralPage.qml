import QtQuick
import GlimmoraApp

// The macOS look's general page.
MacPage {
    title: qsTr("General")

    MacRow {
        first: true
        label: qsTr("Interface scale")

        MacSlider {
            from: 0.85
            to: 1.35
            value: settingsManager.uiScale
            readout: settingsManager.uiScale.toFixed(2)
            onMoved: value => settingsManager.setUiScale(Math.round(value * 100) / 100)
        }
    }
    MacRow {
        label: qsTr("Language")

        // Shown only: this look has no way of choosing a language.
        Text {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: settingsManager.language
            color: "#6E6E73"
            font.family: AppTheme.monoFamily
            font.pixelSize: AppTheme.fontSizeBody
        }
    }
    MacRow {
        label: qsTr("Confirm before quit")

        MacSwitch {
            checked: settingsManager.confirmQuit
            onToggled: checked => settingsManager.setConfirmQuit(checked)
        }
    }
    MacRow {
        label: qsTr("Clear annotations when paused")

        MacSwitch {
            checked: settingsManager.clearOnPause
            onToggled: checked => settingsManager.setClearOnPause(checked)
        }
    }
}
