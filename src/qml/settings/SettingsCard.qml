import QtQuick
import GlimmoraApp

// A card of rows in the Windows look.
Rectangle {
    id: root

    default property alias rows: column.data

    width: parent ? parent.width : 0
    height: column.implicitHeight
    radius: AppTheme.px(10)
    color: AppTheme.winCard
    border.width: 1
    border.color: AppTheme.winLine

    Column {
        id: column

        width: root.width
    }
}
