import QtQuick
import QtQuick.Controls
import GlimmoraApp

// A page of a settings panel: its content in a column that scrolls when it
// is taller than the page.
Flickable {
    id: root

    property int margins: AppTheme.px(28)
    property int spacing: AppTheme.px(14)
    default property alias content: column.data

    clip: true
    contentWidth: root.width
    contentHeight: column.implicitHeight + 2 * root.margins
    boundsBehavior: Flickable.StopAtBounds
    ScrollBar.vertical: ScrollBar {
        policy: root.contentHeight > root.height ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff
    }

    Column {
        id: column

        x: root.margins
        y: root.margins
        width: root.width - 2 * root.margins
        spacing: root.spacing
    }
}
