import QtQuick
import GlimmoraApp

// What the Windows look's panel holds: title bar, sidebar, the pages in
// sidebar order, and the popup, confirmation and editor above them.
Item {
    id: root

    required property SettingsWindow panel

    SettingsTitleBar {
        id: titleBar

        width: parent.width
        panel: root.panel
    }

    SettingsSidebar {
        id: sidebar

        anchors.top: titleBar.bottom
        anchors.bottom: parent.bottom
        pages: root.panel.pages
        currentIndex: root.panel.currentPage
        onPicked: index => root.panel.currentPage = index
    }

    Item {
        id: pages

        anchors.left: sidebar.right
        anchors.right: parent.right
        anchors.top: titleBar.bottom
        anchors.bottom: parent.bottom

        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 0
            page: "SettingsGeneralPage.qml"
            properties: ({ "panel": root.panel })
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 1
            page: "SettingsSpotlightPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 2
            page: "SettingsDrawingPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 3
            page: "SettingsEffectsPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 4
            page: "SettingsKeystrokesPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 5
            page: "SettingsCapturePage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 6
            page: "SettingsHotkeysPage.qml"
            properties: ({ "panel": root.panel })
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 7
            page: "SettingsDisplaysPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 8
            page: "SettingsPortalPage.qml"
        }
    }

    Connections {
        target: root.panel

        function onLanguagesRequested(anchor: Item) {
            languagePopup.openAt(anchor);
        }
    }

    LanguagePopup {
        id: languagePopup

        z: 900
    }

    ResetConfirmation {
        z: 999
        visible: root.panel.resetConfirmVisible
        onClosed: root.panel.resetConfirmVisible = false
    }

    HotkeyEditor {
        z: 1000
        action: root.panel.hotkeyCaptureAction
        label: root.panel.hotkeyCaptureLabel
        value: root.panel.hotkeyCaptureValue
        onValueEdited: value => root.panel.hotkeyCaptureValue = value
        onFinished: root.panel.hotkeyCaptureAction = ""
    }
}
