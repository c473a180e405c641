import QtQuick

// The macOS look's spotlight page. Its ranges are its own; the store's clamp
// has the last word.
MacPage {
    title: qsTr("Spotlight")

    MacRow {
        first: true
        label: qsTr("Radius")

        MacSlider {
            from: 80
            to: 420
            value: settingsManager.spotlightRadius
            readout: settingsManager.spotlightRadius + " px"
            onMoved: value => settingsManager.setSpotlightRadius(Math.round(value))
        }
    }
    MacRow {
        label: qsTr("Darkness")

        MacSlider {
            from: 0.25
            to: 0.85
            value: settingsManager.darknessOpacity
            readout: settingsManager.darknessOpacity.toFixed(2)
            onMoved: value => settingsManager.setDarknessOpacity(Math.round(value * 100) / 100)
        }
    }
    MacRow {
        label: qsTr("Edge blur")

        MacSlider {
            from: 0
            to: 120
            value: settingsManager.edgeBlur
            readout: settingsManager.edgeBlur + " px"
            onMoved: value => settingsManager.setEdgeBlur(Math.round(value))
        }
    }
    MacRow {
        label: qsTr("Smooth tracking")

        MacSwitch {
            checked: settingsManager.spotlightSmoothTracking
            onToggled: checked => settingsManager.setSpotlightSmoothTracking(checked)
        }
    }
    MacRow {
        label: qsTr("Hide while typing")

        MacSwitch {
            checked: settingsManager.hideSpotlightWhileTyping
            onToggled: checked => settingsManager.setHideSpotlightWhileTyping(checked)
        }
    }
}
