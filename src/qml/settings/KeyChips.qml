import QtQuick
import GlimmoraApp

// A key sequence as a row of key caps, one per "+"-separated token.
Row {
    id: root

    property string sequence
    property color fillColor: AppTheme.winItemBg
    property color lineColor: AppTheme.winBorder
    property color textColor: AppTheme.winText

    spacing: AppTheme.px(4)

    Repeater {
        model: root.sequence === "" ? [] : root.sequence.split("+")

        // Qt 6.4's linter does not see this document's ids inside a delegate.
        // qmllint disable unqualified
        delegate: Rectangle {
            id: cap

            required property string modelData

            width: Math.max(AppTheme.px(22), capText.implicitWidth + AppTheme.px(12))
            height: AppTheme.px(22)
            radius: AppTheme.px(5)
            color: root.fillColor
            border.width: 1
            border.color: root.lineColor

            Text {
                id: capText

                anchors.centerIn: parent
                text: cap.modelData
                color: root.textColor
                font.family: AppTheme.monoFamily
                font.pixelSize: AppTheme.fontSizeCaption
            }
        }
        // qmllint enable unqualified
    }
}
