import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The Windows look's capture page: screenshots, and recording where it is on.
SettingsPage {
    id: root

    readonly property var formats: ["PNG", "JPEG", "WebP"]

    function shortcutText(action: string): string {
        const sequence = settingsManager.hotkeysRevision >= 0 ? settingsManager.hotkeyForAction(action) : "";
        return AppTheme.isLinux ? SettingsLogic.linuxText(sequence) : sequence;
    }

    title: qsTranslate("SettingsWindow", "Capture")
    subtitle: appController.recordingAvailable
              ? qsTranslate("SettingsWindow", "Screenshot and recording settings. Screenshots and recordings share the same save folder.")
              : qsTranslate("SettingsWindow", "Screenshot settings. Screen recording is planned for a later release.")

    component ValueText: Text {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: AppTheme.winTextDim
        font.family: AppTheme.monoFamily
        font.pixelSize: AppTheme.fontSizeCaption
    }

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Format")
            subText: qsTranslate("SettingsWindow", "PNG and JPEG are enabled first.")

            SettingsChoice {
                options: root.formats
                deadIndexes: [2]
                activeIndex: root.formats.indexOf(settingsManager.captureImageFormat)
                onPicked: index => settingsManager.setCaptureImageFormat(root.formats[index])
            }
        }
        SettingsRow {
            visible: settingsManager.captureImageFormat === "JPEG"
            label: qsTranslate("SettingsWindow", "Quality")
            subText: qsTranslate("SettingsWindow", "Higher values create cleaner but larger images.")

            SettingsSlider {
                from: 50
                to: 100
                value: settingsManager.captureImageQuality
                readout: settingsManager.captureImageQuality + " %"
                onMoved: value => settingsManager.setCaptureImageQuality(Math.round(value))
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Save to")
            subText: appController.recordingAvailable
                     ? qsTranslate("SettingsWindow", "Screenshots and recordings are saved here.")
                     : qsTranslate("SettingsWindow", "Screenshots are saved here.")

            Rectangle {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                width: AppTheme.px(300)
                height: AppTheme.px(30)
                radius: AppTheme.px(6)
                color: AppTheme.winItemBg
                border.width: 1
                border.color: AppTheme.winBorder

                Text {
                    anchors.fill: parent
                    anchors.leftMargin: AppTheme.px(10)
                    anchors.rightMargin: AppTheme.px(10)
                    verticalAlignment: Text.AlignVCenter
                    text: settingsManager.captureSaveFolder
                    elide: Text.ElideMiddle
                    color: AppTheme.winText
                    font.family: AppTheme.monoFamily
                    font.pixelSize: AppTheme.fontSizeCaption
                }
                MouseArea {
                    anchors.fill: parent
                    cursorShape: Qt.PointingHandCursor
                    onClicked: appController.chooseSaveFolder()
                }
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Include annotations")
            subText: qsTranslate("SettingsWindow", "Composite Glimmora markup into captures when the backend supports it.")

            SettingsSwitch {
                checked: settingsManager.captureIncludeAnnotations
                onToggled: checked => settingsManager.setCaptureIncludeAnnotations(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Copy to clipboard")
            subText: qsTranslate("SettingsWindow", "Place each screenshot on the system clipboard.")

            SettingsSwitch {
                checked: settingsManager.captureCopyToClipboard
                onToggled: checked => settingsManager.setCaptureCopyToClipboard(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Open in editor")
            subText: qsTranslate("SettingsWindow", "Markup editor is staged for a later pass.")

            PanelChip {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: qsTranslate("SettingsWindow", "Coming soon")
                interactive: false
                radius: height / 2
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Shutter sound")
            subText: qsTranslate("SettingsWindow", "Optional audio cue.")

            SettingsSwitch {
                checked: settingsManager.captureShutterSound
                onToggled: checked => settingsManager.setCaptureShutterSound(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Full-screen snip")
            subText: qsTranslate("SettingsWindow", "Captures the active display instantly.")

            ValueText {
                text: root.shortcutText("captureFullScreen")
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Rectangular snip")
            subText: qsTranslate("SettingsWindow", "Drag to select a region on the active display.")

            ValueText {
                text: root.shortcutText("captureRegion")
            }
        }
    }

    SettingsRecordingCard {
        visible: appController.recordingAvailable
    }
}
