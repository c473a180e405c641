import QtQuick
import GlimmoraApp

// The macOS look's list of pages.
Rectangle {
    id: root

    property var pages: []
    property int currentIndex: 0

    signal picked(int index)

    width: AppTheme.sidebarWidth
    radius: AppTheme.px(18)
    color: "#ECECF0"

    // Square on the side that meets the pages; round where the panel is.
    Rectangle {
        anchors.right: parent.right
        width: parent.radius
        height: parent.height
        color: parent.color
    }

    Column {
        x: AppTheme.px(10)
        y: AppTheme.px(52)
        width: parent.width - 2 * AppTheme.px(10)
        spacing: AppTheme.px(2)

        Repeater {
            model: root.pages

            // Qt 6.4's linter does not see this document's ids inside a delegate.
            // qmllint disable unqualified
            delegate: Rectangle {
                id: item

                required property var modelData
                required property int index

                objectName: "macSidebar-" + item.modelData.id
                width: parent.width
                height: AppTheme.px(30)
                radius: AppTheme.px(6)
                color: item.index === root.currentIndex ? "#007AFF" : "transparent"

                Text {
                    x: AppTheme.px(12)
                    anchors.verticalCenter: parent.verticalCenter
                    text: item.modelData.label
                    color: item.index === root.currentIndex ? "white" : "#1D1D1F"
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.fontSizeBody
                }
                MouseArea {
                    anchors.fill: parent
                    onClicked: root.picked(item.index)
                }
            }
            // qmllint enable unqualified
        }
    }
}
