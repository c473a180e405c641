import QtQuick
import QtQuick.Controls
import GlimmoraApp

// A page of the macOS look: a title over one white card of rows.
Flickable {
    id: root

    property string title
    default property alias rows: card.data

    clip: true
    contentWidth: root.width
    contentHeight: column.implicitHeight + 2 * AppTheme.px(24)
    boundsBehavior: Flickable.StopAtBounds
    ScrollBar.vertical: ScrollBar {
        policy: root.contentHeight > root.height ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff
    }

    Column {
        id: column

        x: AppTheme.px(24)
        y: AppTheme.px(24)
        width: root.width - 2 * AppTheme.px(24)
        spacing: AppTheme.px(14)

        Text {
            text: root.title
            color: "#1D1D1F"
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.px(20)
            font.weight: Font.Bold
        }
        Rectangle {
            width: parent.width
            height: card.implicitHeight
            radius: AppTheme.px(10)
            color: "white"
            border.width: 1
            border.color: "#1A000000"

            Column {
                id: card

                width: parent.width
            }
        }
    }
}
