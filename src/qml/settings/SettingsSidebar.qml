import QtQuick
import GlimmoraApp

// The Windows look's list of pages, with the version box at its foot.
// Linux-only pages take no room on other platforms.
Item {
    id: root

    property var pages: []
    property int currentIndex: 0

    signal picked(int index)

    width: AppTheme.sidebarWidth

    Column {
        x: AppTheme.px(10)
        y: AppTheme.px(10)
        width: root.width - 2 * AppTheme.px(10)
        spacing: AppTheme.px(2)

        Repeater {
            model: root.pages

            // Qt 6.4's linter does not see this document's ids inside a delegate.
            // qmllint disable unqualified
            delegate: Rectangle {
                id: item

                required property var modelData
                required property int index
                readonly property bool current: item.index === root.currentIndex
                readonly property bool shown: !item.modelData.linuxOnly || AppTheme.isLinux

                objectName: "sidebar-" + item.modelData.id
                width: parent.width
                height: item.shown ? AppTheme.px(34) : 0
                visible: item.shown
                radius: AppTheme.px(7)
                color: item.current ? AppTheme.accentSoft : itemArea.containsMouse ? AppTheme.winLine : "transparent"

                Rectangle {
                    visible: item.current
                    anchors.verticalCenter: parent.verticalCenter
                    width: AppTheme.px(3)
                    height: AppTheme.px(18)
                    radius: width / 2
                    color: AppTheme.accent
                }
                TintedIcon {
                    x: AppTheme.px(10)
                    anchors.verticalCenter: parent.verticalCenter
                    width: AppTheme.px(14)
                    height: AppTheme.px(14)
                    name: item.modelData.icon
                    color: item.current ? AppTheme.accent : AppTheme.winTextDim
                }
                Text {
                    x: AppTheme.px(32)
                    anchors.verticalCenter: parent.verticalCenter
                    text: item.modelData.label
                    color: item.current ? AppTheme.accent : AppTheme.winText
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.fontSizeBody
                    font.weight: item.current ? Font.DemiBold : Font.Normal
                }
                MouseArea {
                    id: itemArea

                    anchors.fill: parent
                    hoverEnabled: true
                    cursorShape: Qt.PointingHandCursor
                    onClicked: root.picked(item.index)
                }
            }
            // qmllint enable unqualified
        }
    }

    Rectangle {
        x: AppTheme.px(10)
        anchors.bottom: parent.bottom
        anchors.bottomMargin: AppTheme.px(10)
        width: root.width - 2 * AppTheme.px(10)
        height: AppTheme.px(52)
        radius: AppTheme.px(8)
        color: AppTheme.winSidebarFooter

        Column {
            x: AppTheme.px(12)
            anchors.verticalCenter: parent.verticalCenter
            spacing: AppTheme.px(2)

            Text {
                text: qsTranslate("SettingsWindow", "Glimmora v0.4.5")
                color: AppTheme.winText
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeCaption
                font.weight: Font.Medium
            }
            Text {
                text: qsTranslate("SettingsWindow", "Up to date")
                color: AppTheme.winTextMute
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeCaption
            }
        }
    }
}
