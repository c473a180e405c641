import QtQuick
import GlimmoraApp

// The Windows look's spotlight page, with a live preview of the mask.
SettingsPage {
    title: qsTranslate("SettingsWindow", "Spotlight")
    subtitle: qsTranslate("SettingsWindow", "A soft circular highlight that follows your cursor.")

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Radius")
            subText: qsTranslate("SettingsWindow", "Size of the spotlight circle")

            SettingsSlider {
                from: 60
                to: 400
                value: settingsManager.spotlightRadius
                readout: settingsManager.spotlightRadius + " px"
                onMoved: value => settingsManager.setSpotlightRadius(Math.round(value))
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Darkness")
            subText: qsTranslate("SettingsWindow", "Opacity of the surrounding mask")

            SettingsSlider {
                from: 20
                to: 90
                value: settingsManager.darknessOpacity * 100
                readout: Math.round(settingsManager.darknessOpacity * 100) + " %"
                onMoved: value => settingsManager.setDarknessOpacity(Math.round(value) / 100)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Edge blur")
            subText: qsTranslate("SettingsWindow", "Feathering of the spotlight edge")

            SettingsSlider {
                from: 0
                to: 80
                value: settingsManager.edgeBlur
                readout: settingsManager.edgeBlur + " px"
                onMoved: value => settingsManager.setEdgeBlur(Math.round(value))
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Smoothing")
            subText: qsTranslate("SettingsWindow", "Cursor follow delay")

            SettingsSlider {
                from: 0
                to: 0.5
                value: settingsManager.spotlightSmoothingSeconds
                readout: settingsManager.spotlightSmoothingSeconds.toFixed(2) + " s"
                onMoved: value => settingsManager.setSpotlightSmoothingSeconds(Math.round(value * 100) / 100)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Smooth cursor tracking")
            subText: qsTranslate("SettingsWindow", "Spring-based interpolation")

            SettingsSwitch {
                checked: settingsManager.spotlightSmoothTracking
                onToggled: checked => settingsManager.setSpotlightSmoothTracking(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Hide while typing")
            subText: qsTranslate("SettingsWindow", "Prevents flicker during navigation")

            SettingsSwitch {
                checked: settingsManager.hideSpotlightWhileTyping
                onToggled: checked => settingsManager.setHideSpotlightWhileTyping(checked)
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Dim secondary displays")
            subText: qsTranslate("SettingsWindow", "Spotlight only on the active display")

            SettingsSwitch {
                checked: settingsManager.spotlightActiveDisplayOnly
                onToggled: checked => settingsManager.setSpotlightActiveDisplayOnly(checked)
            }
        }
    }

    SectionLabel {
        text: qsTranslate("SettingsWindow", "PREVIEW")
    }

    SpotlightPreview {
        width: parent.width
    }
}
