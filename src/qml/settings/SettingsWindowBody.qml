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

        SettingsGeneralPage {
            anchors.fill: parent
            visible: root.panel.currentPage === 0
            onLanguagesRequested: anchor => languagePopup.openAt(anchor)
            onResetRequested: root.panel.resetConfirmVisible = true
        }
        SettingsSpotlightPage {
            anchors.fill: parent
            visible: root.panel.currentPage === 1
        }
        SettingsDrawingPage {
            anchors.fill: parent
            visible: root.panel.currentPage === 2
        }
        SettingsEffectsPage {
            anchors.fill: parent
            visible: root.panel.currentPage === 3
        }
        SettingsKeystrokesPage {
            anchors.fill: parent
            visible: root.panel.currentPage === 4
        }
        SettingsCapturePage {
            anchors.fill: parent
            visible: root.panel.currentPage === 5
        }
        SettingsHotkeysPage {
            anchors.fill: parent
            visible: root.panel.currentPage === 6
            onEditRequested: (action, label) => root.panel.editHotkey(action, label)
        }
        SettingsDisplaysPage {
            anchors.fill: parent
            visible: root.panel.currentPage === 7
        }
        SettingsPortalPage {
            anchors.fill: parent
            visible: root.panel.currentPage === 8
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
