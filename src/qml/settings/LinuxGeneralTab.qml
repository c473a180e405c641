import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The Linux look's first tab: the panel itself and the spotlight.
PanelPage {
    id: root

    readonly property var scales: [0.9, 1.0, 1.2, 1.35, 1.5]

    margins: AppTheme.px(20)
    spacing: AppTheme.px(18)

    AdwGroup {
        title: qsTr("General")

        AdwRow {
            first: true
            label: qsTr("Launch at startup")

            AdwSwitch {
                checked: settingsManager.launchAtLogin
                onToggled: checked => settingsManager.setLaunchAtLogin(checked)
            }
        }
        AdwRow {
            label: qsTr("Start minimised")
            subtitle: qsTr("Begin paused, no overlay shown")

            AdwSwitch {
                checked: settingsManager.startMinimized
                onToggled: checked => settingsManager.setStartMinimized(checked)
            }
        }
        AdwRow {
            label: qsTr("Interface size")
            subtitle: qsTr("Adjust toolbar, menus, dialogs")

            AdwChoice {
                objectName: "uiScaleChips"
                options: ["90%", "100%", "120%", "135%", "150%"]
                activeIndex: root.scales.findIndex(scale => SettingsLogic.scaleChipActive(settingsManager.uiScale,
                                                                                           scale))
                onPicked: index => settingsManager.setUiScale(root.scales[index])
            }
        }
        AdwRow {
            label: qsTr("Theme")
            subtitle: qsTr("Appearance of the preferences panel")

            AdwChoice {
                objectName: "linuxThemeChips"
                options: [qsTr("☾ Dark"), qsTr("☀ Light"), qsTr("⊙ System")]
                activeIndex: settingsManager.linuxTheme
                onPicked: index => settingsManager.setLinuxTheme(index)
            }
        }
    }

    AdwGroup {
        title: qsTr("Spotlight")

        AdwRow {
            first: true
            label: qsTr("Radius")
            subtitle: qsTr("Size of the spotlight circle")

            AdwSlider {
                from: 60
                to: 400
                value: settingsManager.spotlightRadius
                readout: settingsManager.spotlightRadius + " px"
                onMoved: value => settingsManager.setSpotlightRadius(Math.round(value))
            }
        }
        AdwRow {
            label: qsTr("Darkness")
            subtitle: qsTr("Opacity of the surrounding mask")

            AdwSlider {
                from: 20
                to: 90
                value: settingsManager.darknessOpacity * 100
                readout: Math.round(settingsManager.darknessOpacity * 100) + " %"
                onMoved: value => settingsManager.setDarknessOpacity(Math.round(value) / 100)
            }
        }
        AdwRow {
            label: qsTr("Edge blur")
            subtitle: qsTr("Feathering of the spotlight edge")

            AdwSlider {
                from: 0
                to: 80
                value: settingsManager.edgeBlur
                readout: settingsManager.edgeBlur + " px"
                onMoved: value => settingsManager.setEdgeBlur(Math.round(value))
            }
        }
        AdwRow {
            label: qsTr("Smoothing")
            subtitle: qsTr("Cursor follow delay")

            AdwSlider {
                from: 0
                to: 0.5
                value: settingsManager.spotlightSmoothingSeconds
                readout: settingsManager.spotlightSmoothingSeconds.toFixed(2) + " s"
                onMoved: value => settingsManager.setSpotlightSmoothingSeconds(Math.round(value * 100) / 100)
            }
        }
        AdwRow {
            label: qsTr("Smooth cursor tracking")
            subtitle: qsTr("Spring-based interpolation")

            AdwSwitch {
                checked: settingsManager.spotlightSmoothTracking
                onToggled: checked => settingsManager.setSpotlightSmoothTracking(checked)
            }
        }
        AdwRow {
            label: qsTr("Hide while typing")
            subtitle: qsTr("Prevents flicker during navigation")

            AdwSwitch {
                checked: settingsManager.hideSpotlightWhileTyping
                onToggled: checked => settingsManager.setHideSpotlightWhileTyping(checked)
            }
        }
        AdwRow {
            label: qsTr("Dim secondary displays")
            subtitle: qsTr("Spotlight only on the active display")

            AdwSwitch {
                checked: settingsManager.spotlightActiveDisplayOnly
                onToggled: checked => settingsManager.setSpotlightActiveDisplayOnly(checked)
            }
        }
    }
}
