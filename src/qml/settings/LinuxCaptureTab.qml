import QtQuick
import GlimmoraApp

// The Linux look's capture tab: screenshots, and recording where it is on.
PanelPage {
    id: root

    readonly property var formats: ["PNG", "JPEG"]

    margins: AppTheme.px(20)
    spacing: AppTheme.px(18)

    AdwGroup {
        title: qsTr("Screenshot")

        AdwRow {
            first: true
            label: qsTr("Format")
            subtitle: qsTr("PNG and JPEG are enabled first.")

            AdwChoice {
                options: root.formats
                activeIndex: root.formats.indexOf(settingsManager.captureImageFormat)
                onPicked: index => settingsManager.setCaptureImageFormat(root.formats[index])
            }
        }
        AdwRow {
            label: qsTr("Save to")
            subtitle: appController.recordingAvailable ? qsTr("Screenshots and recordings are saved here.")
                                                       : qsTr("Screenshots are saved here.")

            Row {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                spacing: AppTheme.px(8)

                Text {
                    objectName: "saveFolderText"
                    anchors.verticalCenter: parent.verticalCenter
                    width: AppTheme.px(130)
                    horizontalAlignment: Text.AlignRight
                    text: settingsManager.captureSaveFolder
                    elide: Text.ElideLeft
                    color: AppTheme.linuxTextDim
                    font.family: AppTheme.monoFamily
                    font.pixelSize: AppTheme.fontSizeCaption
                }
                PanelButton {
                    text: qsTr("Choose…")
                    height: AppTheme.px(30)
                    textColor: AppTheme.linuxText
                    fillColor: AppTheme.linuxControlFill
                    lineColor: AppTheme.linuxControlLine
                    onClicked: appController.chooseSaveFolder()
                }
            }
        }
        AdwRow {
            label: qsTr("Include annotations")
            subtitle: qsTr("Composite Glimmora markup into captures when the backend supports it.")

            AdwSwitch {
                checked: settingsManager.captureIncludeAnnotations
                onToggled: checked => settingsManager.setCaptureIncludeAnnotations(checked)
            }
        }
        AdwRow {
            label: qsTr("Copy to clipboard")
            subtitle: qsTr("Place each screenshot on the system clipboard.")

            AdwSwitch {
                checked: settingsManager.captureCopyToClipboard
                onToggled: checked => settingsManager.setCaptureCopyToClipboard(checked)
            }
        }
        AdwRow {
            label: qsTr("Shutter sound")
            subtitle: qsTr("Optional audio cue.")

            AdwSwitch {
                checked: settingsManager.captureShutterSound
                onToggled: checked => settingsManager.setCaptureShutterSound(checked)
            }
        }
    }

    AdwGroup {
        visible: appController.recordingAvailable
        title: qsTr("Recording")

        // Linux records H.264 in MP4 as Windows does.
        AdwRow {
            first: true
            label: qsTr("Format")
            subtitle: qsTr("MP4 / H.264 — fixed. Requires GStreamer 1.0.")

            AdwValue {
                text: "MP4 / H.264"
            }
        }
        AdwRow {
            label: qsTr("Frame rate")
            subtitle: qsTr("Fixed at 30 fps")

            AdwValue {
                text: qsTr("30 fps")
            }
        }
        AdwRow {
            label: qsTr("Open folder after recording")
            subtitle: qsTr("Opens the save folder automatically when recording stops.")

            AdwSwitch {
                checked: settingsManager.recordOpenFolderAfterStop
                onToggled: checked => settingsManager.setRecordOpenFolderAfterStop(checked)
            }
        }
    }

    component AdwValue: Text {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: AppTheme.linuxTextDim
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeBody
    }
}
