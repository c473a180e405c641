import QtQuick
import QtQuick.Layouts
import GlimmoraApp

Rectangle {
    implicitWidth: 1
    implicitHeight: AppTheme.px(18)
    color: AppTheme.border
    Layout.leftMargin: 4
    Layout.rightMargin: 4
    Layout.alignment: Qt.AlignVCenter
}
