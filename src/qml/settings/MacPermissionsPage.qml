import QtQuick
import GlimmoraApp

// The macOS permissions the program needs, each with a way to the system's
// settings. Without a permissions object every permission reads "Required".
MacPage {
    id: root

    readonly property bool available: typeof macPermissions !== "undefined" && macPermissions !== null

    title: qsTr("Permissions")

    component Note: Text {
        x: AppTheme.px(16)
        width: parent.width - 2 * AppTheme.px(16)
        topPadding: AppTheme.px(14)
        bottomPadding: AppTheme.px(14)
        wrapMode: Text.Wrap
        color: "#6E6E73"
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeCaption
    }

    component PermissionRow: MacRow {
        id: row

        property bool granted: false

        signal openRequested()

        subText: row.granted ? qsTr("Granted") : qsTr("Required")

        PanelButton {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: row.granted ? qsTr("Open") : qsTr("Open Settings")
            textColor: "#1D1D1F"
            fillColor: "white"
            lineColor: "#1A000000"
            onClicked: row.openRequested()
        }
    }

    Note {
        text: qsTr("macOS requires explicit permission for screen capture, global control, and optional keystroke display.")
    }
    PermissionRow {
        label: qsTr("Screen Recording")
        granted: root.available && macPermissions.screenRecordingGranted
        onOpenRequested: {
            if (root.available)
                macPermissions.openScreenRecordingSettings();
        }
    }
    PermissionRow {
        label: qsTr("Accessibility")
        granted: root.available && macPermissions.accessibilityGranted
        onOpenRequested: {
            if (root.available)
                macPermissions.openAccessibilitySettings();
        }
    }
    PermissionRow {
        label: qsTr("Input Monitoring")
        granted: root.available && macPermissions.inputMonitoringGranted
        onOpenRequested: {
            if (root.available)
                macPermissions.openInputMonitoringSettings();
        }
    }
    MacRow {
        label: qsTr("Refresh status")

        PanelButton {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Refresh")
            textColor: "#1D1D1F"
            fillColor: "white"
            lineColor: "#1A000000"
            onClicked: {
                if (root.available)
                    macPermissions.refresh();
            }
        }
    }
    Note {
        text: qsTr("After granting Screen Recording or Input Monitoring, quit and reopen Glimmora if macOS still reports the permission as missing.")
    }
}
