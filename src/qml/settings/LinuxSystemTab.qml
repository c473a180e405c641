import QtQuick
import GlimmoraApp

// The Linux look's system tab: what the session allows, the displays that
// get the overlay, and the desktop portals.
PanelPage {
    margins: AppTheme.px(20)
    spacing: AppTheme.px(18)

    Rectangle {
        width: parent.width
        height: summary.implicitHeight + AppTheme.px(24)
        radius: AppTheme.px(10)
        color: "#FFF5EC"
        border.width: 1
        border.color: "#FFD9B0"

        Rectangle {
            x: AppTheme.px(14)
            anchors.verticalCenter: parent.verticalCenter
            width: AppTheme.px(8)
            height: width
            radius: width / 2
            color: appController.linuxUsesX11Backend ? "#4CAF50" : "#FF9800"
        }
        Text {
            id: summary

            x: AppTheme.px(32)
            width: parent.width - AppTheme.px(46)
            anchors.verticalCenter: parent.verticalCenter
            text: appController.linuxCapabilitySummary
            wrapMode: Text.Wrap
            color: "#6B3A1F"
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
        }
    }

    LinuxDisplaysGroup {}

    AdwGroup {
        title: qsTr("Portal Access")
        footer: qsTr("xdg-desktop-portal ≥ 1.9 with GlobalShortcuts and InputCapture interfaces is required for full functionality on Wayland.")

        AdwRow {
            first: true
            label: qsTr("Global shortcuts")

            AdwBadge {
                status: appController.linuxHotkeysAvailable ? "ok" : "warn"
                text: appController.linuxHotkeysAvailable ? qsTr("Available") : qsTr("Portal required")
            }
        }
        AdwRow {
            label: qsTr("Input capture")

            AdwBadge {
                status: appController.linuxInputVisualizationAvailable ? "ok" : "warn"
                text: appController.linuxInputVisualizationAvailable ? qsTr("Available") : qsTr("Limited")
            }
        }
        AdwRow {
            label: qsTr("Overlay click-through")
            subtitle: qsTr("Supported via Qt window flags and XCB SHAPE extension")

            AdwBadge {
                status: appController.linuxClickThroughAvailable ? "ok" : "warn"
                text: appController.linuxClickThroughAvailable ? qsTr("Available") : qsTr("Limited")
            }
        }
    }
}
