import QtQuick
import GlimmoraApp

// What the macOS look's panel holds: the sidebar, the title, and the pages in
// sidebar order. The top edge drags the panel anywhere.
Item {
    id: root

    required property SettingsWindowMac panel

    MouseArea {
        width: parent.width
        height: AppTheme.px(48)
        drag.target: root.panel
    }

    MacSidebar {
        id: sidebar

        height: parent.height
        pages: root.panel.pages
        currentIndex: root.panel.currentPage
        onPicked: index => root.panel.currentPage = index
    }

    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        y: AppTheme.px(16)
        text: qsTr("Glimmora Settings")
        color: "#1D1D1F"
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeBody
        font.weight: Font.DemiBold
    }

    Item {
        anchors.left: sidebar.right
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.topMargin: AppTheme.px(40)
        anchors.bottom: parent.bottom

        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 0
            page: "MacGeneralPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 1
            page: "MacSpotlightPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 2
            page: "MacDrawingPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 3
            page: "MacEffectsPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 4
            page: "MacKeystrokesPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 5
            page: "MacPermissionsPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 6
            page: "MacHotkeysPage.qml"
        }
        LazyPage {
            anchors.fill: parent
            shown: root.panel.currentPage === 7
            page: "MacDisplaysPage.qml"
        }
    }
}
