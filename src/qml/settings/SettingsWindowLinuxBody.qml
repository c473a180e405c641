import QtQuick
import GlimmoraApp

// What the Linux look's panel holds: header bar, tab switcher, the five tabs
// and the hotkey editor above them.
Item {
    id: root

    required property SettingsWindowLinux panel

    AdwHeader {
        id: header

        width: parent.width
        panel: root.panel
    }

    AdwTabBar {
        id: tabBar

        anchors.top: header.bottom
        width: parent.width
        labels: [qsTr("General"), qsTr("Drawing"), qsTr("Capture"), qsTr("Hotkeys"), qsTr("System")]
        currentIndex: root.panel.currentTab
        onPicked: index => root.panel.currentTab = index
    }

    Item {
        anchors.top: tabBar.bottom
        anchors.bottom: parent.bottom
        width: parent.width

        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentTab === 0
            page: "LinuxGeneralTab.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentTab === 1
            page: "LinuxDrawingTab.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentTab === 2
            page: "LinuxCaptureTab.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentTab === 3
            page: "LinuxHotkeysTab.qml"
            properties: ({ "panel": root.panel })
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentTab === 4
            page: "LinuxSystemTab.qml"
        }
    }

    HotkeyEditor {
        z: 200
        action: root.panel.hotkeyCaptureAction
        label: root.panel.hotkeyCaptureLabel
        value: root.panel.hotkeyCaptureValue
        metaName: "Super"
        overlayColor: "#80000000"
        cardColor: AppTheme.linuxSurface
        lineColor: AppTheme.linuxBorderSubtle
        textColor: AppTheme.linuxText
        dimColor: AppTheme.linuxTextDim
        boxColor: AppTheme.linuxBg
        onValueEdited: value => root.panel.hotkeyCaptureValue = value
        onFinished: root.panel.hotkeyCaptureAction = ""
    }
}
