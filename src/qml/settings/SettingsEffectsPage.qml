import QtQuick
import GlimmoraApp

// The Windows look's click effects: the ripple switch, colours and timing.
SettingsPage {
    title: qsTranslate("SettingsWindow", "Click Effects")
    subtitle: qsTranslate("SettingsWindow", "Make mouse clicks visible during recordings and demos.")

    component Swatches: ColorDots {
        dotSize: AppTheme.px(22)
        colors: ["#F4A65A", "#F05D5D", "#F4C24A", "#5EC27A", "#5DA8F0", "#C57BE0", "#ECEEF2"]
    }

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Visualize clicks")
            subText: qsTranslate("SettingsWindow", "Master toggle for ripple effects.")

            SettingsSwitch {
                checked: settingsManager.clickRippleEnabled
                onToggled: checked => settingsManager.setClickRippleEnabled(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Left click color")

            Swatches {
                current: settingsManager.leftClickColor
                onPicked: color => settingsManager.setLeftClickColor(color)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Right click color")

            Swatches {
                current: settingsManager.rightClickColor
                onPicked: color => settingsManager.setRightClickColor(color)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Middle click color")

            Swatches {
                current: settingsManager.middleClickColor
                onPicked: color => settingsManager.setMiddleClickColor(color)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Ripple size")

            SettingsSlider {
                from: 20
                to: 120
                value: settingsManager.rippleSize
                readout: settingsManager.rippleSize + " px"
                onMoved: value => settingsManager.setRippleSize(Math.round(value))
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Duration")

            SettingsSlider {
                from: 200
                to: 1500
                value: settingsManager.rippleDuration
                readout: settingsManager.rippleDuration + " ms"
                onMoved: value => settingsManager.setRippleDuration(Math.round(value))
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Show during screen recording")
            subText: qsTranslate("SettingsWindow", "Detected via OS capture API.")

            SettingsSwitch {
                checked: settingsManager.showClicksDuringRecording
                onToggled: checked => settingsManager.setShowClicksDuringRecording(checked)
            }
        }
    }

    SectionLabel {
        text: qsTranslate("SettingsWindow", "PREVIEW")
    }

    RipplePreview {
        width: parent.width
    }
}
