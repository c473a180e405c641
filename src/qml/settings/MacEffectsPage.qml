import QtQuick

// The macOS look's click ripples.
MacPage {
    title: qsTr("Click Effects")

    MacRow {
        first: true
        label: qsTr("Show click ripple")

        MacSwitch {
            checked: settingsManager.clickRippleEnabled
            onToggled: checked => settingsManager.setClickRippleEnabled(checked)
        }
    }
    MacRow {
        label: qsTr("Ripple size")

        MacSlider {
            from: 24
            to: 120
            value: settingsManager.rippleSize
            readout: settingsManager.rippleSize + " px"
            onMoved: value => settingsManager.setRippleSize(Math.round(value))
        }
    }
    MacRow {
        label: qsTr("Ripple duration")

        MacSlider {
            from: 150
            to: 900
            value: settingsManager.rippleDuration
            readout: settingsManager.rippleDuration + " ms"
            onMoved: value => settingsManager.setRippleDuration(Math.round(value))
        }
    }
    MacRow {
        label: qsTr("Show during recording")

        MacSwitch {
            checked: settingsManager.showClicksDuringRecording
            onToggled: checked => settingsManager.setShowClicksDuringRecording(checked)
        }
    }
}
