import QtQuick
import GlimmoraApp

// The Windows look's displays: where they stand, which get the overlay and
// which one holds the controls.
SettingsPage {
    title: qsTranslate("SettingsWindow", "Displays")
    subtitle: qsTranslate("SettingsWindow", "Choose which monitors get the overlay and which enabled monitor controls Glimmora.")

    SectionLabel {
        text: qsTranslate("SettingsWindow", "ARRANGEMENT")
    }

    DisplayArrangement {
        width: parent.width
    }

    SettingsCard {
        Repeater {
            model: displayManager.displays

            delegate: SettingsDisplayRow {}
        }
    }

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Spotlight on active display only")
            subText: qsTranslate("SettingsWindow", "Only the display containing the cursor receives the dark mask.")

            SettingsSwitch {
                checked: settingsManager.spotlightActiveDisplayOnly
                onToggled: checked => settingsManager.setSpotlightActiveDisplayOnly(checked)
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Mirror annotations across displays")
            subText: qsTranslate("SettingsWindow", "Strokes drawn on one display appear on all enabled displays.")

            SettingsSwitch {
                checked: settingsManager.mirrorAnnotationsAcrossDisplays
                onToggled: checked => settingsManager.setMirrorAnnotationsAcrossDisplays(checked)
            }
        }
    }

    PanelButton {
        text: qsTranslate("SettingsWindow", "Reset display defaults")
        onClicked: displayManager.resetDisplayDefaults()
    }
}
