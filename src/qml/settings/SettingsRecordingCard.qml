import QtQuick
import GlimmoraApp

// The recording options of the Windows look's capture page. Linux records
// H.264 in MP4 as Windows does, through GStreamer.
SettingsCard {
    component ValueText: Text {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: AppTheme.winTextDim
        font.family: AppTheme.monoFamily
        font.pixelSize: AppTheme.fontSizeCaption
    }

    SettingsRow {
        label: qsTranslate("SettingsWindow", "Format")
        subText: AppTheme.isLinux ? qsTranslate("SettingsWindow", "MP4, H.264 — fixed. Requires GStreamer 1.0.")
                                  : qsTranslate("SettingsWindow", "MP4, H.264 — fixed.")

        ValueText {
            text: "MP4 / H.264"
        }
    }
    SettingsRow {
        label: qsTranslate("SettingsWindow", "Frame rate")
        subText: qsTranslate("SettingsWindow", "Fixed at 30 fps.")

        ValueText {
            text: qsTranslate("SettingsWindow", "30 fps")
        }
    }
    SettingsRow {
        label: qsTranslate("SettingsWindow", "Video quality")
        subText: qsTranslate("SettingsWindow", "Auto bitrate by resolution. Higher quality creates larger files.")

        SettingsChoice {
            options: [qsTranslate("SettingsWindow", "Small file"), qsTranslate("SettingsWindow", "Balanced"),
                qsTranslate("SettingsWindow", "High quality")]
            activeIndex: settingsManager.recordQuality
            onPicked: index => settingsManager.setRecordQuality(index)
        }
    }
    SettingsRow {
        last: true
        label: qsTranslate("SettingsWindow", "Open folder after recording")
        subText: qsTranslate("SettingsWindow", "Opens the save folder automatically when recording stops.")

        SettingsSwitch {
            checked: settingsManager.recordOpenFolderAfterStop
            onToggled: checked => settingsManager.setRecordOpenFolderAfterStop(checked)
        }
    }
}
