import QtQuick
import GlimmoraApp

// The Windows look's page of the Linux desktop portals. The Linux look has its
// own, so this page is reached only when this look is shown on Linux.
SettingsPage {
    title: qsTranslate("SettingsWindow", "PORTAL ACCESS")

    component StateText: Text {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: AppTheme.winTextDim
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeCaption
    }

    Row {
        spacing: AppTheme.px(8)

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: AppTheme.px(8)
            height: width
            radius: width / 2
            color: appController.linuxUsesX11Backend ? AppTheme.accent : "#F4C24A"
        }
        Text {
            text: appController.linuxCapabilitySummary
            color: AppTheme.winText
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
        }
    }

    SectionLabel {
        text: qsTranslate("SettingsWindow", "PERMISSIONS")
    }

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Global shortcuts")
            subText: qsTranslate("SettingsWindow", "xdg-desktop-portal.GlobalShortcuts — required for hotkeys on Wayland")

            StateText {
                text: appController.linuxHotkeysAvailable ? qsTranslate("SettingsWindow", "Available")
                                                          : qsTranslate("SettingsWindow", "Portal required")
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Input capture")
            subText: qsTranslate("SettingsWindow", "xdg-desktop-portal.InputCapture — required for keystroke display on Wayland")

            StateText {
                text: appController.linuxInputVisualizationAvailable ? qsTranslate("SettingsWindow", "Available")
                                                                     : qsTranslate("SettingsWindow", "Limited")
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Overlay click-through")
            subText: qsTranslate("SettingsWindow", "Supported on Wayland via Qt window flags and on X11 via XCB SHAPE extension")

            StateText {
                text: appController.linuxClickThroughAvailable ? qsTranslate("SettingsWindow", "Available")
                                                               : qsTranslate("SettingsWindow", "Limited")
            }
        }
    }

    SettingsCard {
        visible: appController.linuxPortalRequired

        SettingsRow {
            last: true
            label: "xdg-desktop-portal"
            subText: qsTranslate("SettingsWindow", "Version ≥ 1.9 with GlobalShortcuts and InputCapture interfaces required for hotkeys and keystroke display on Wayland")

            PanelButton {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: qsTranslate("SettingsWindow", "Learn more")
                onClicked: Qt.openUrlExternally("https://flatpak.github.io/xdg-desktop-portal/")
            }
        }
    }
}
