import QtQuick
import GlimmoraApp

// Colour dots of a row; the stored colour, compared without regard to case,
// wears a ring. A picked colour is reported as upper-case hex text.
Row {
    id: root

    property var colors: []
    property string current
    property int dotSize: AppTheme.px(20)
    property color ringColor: AppTheme.accent
    property int ringWidth: 2

    signal picked(string color)

    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    spacing: AppTheme.px(8)

    Repeater {
        model: root.colors

        // Qt 6.4's linter does not see this document's ids inside a delegate.
        // qmllint disable unqualified
        delegate: Rectangle {
            id: dot

            required property color modelData
            readonly property string name: dot.modelData.toString().toUpperCase()
            readonly property bool chosen: dot.name === root.current.toUpperCase()

            objectName: "dot-" + dot.name
            width: root.dotSize
            height: root.dotSize
            radius: width / 2
            color: dot.modelData
            border.width: dot.chosen ? root.ringWidth : 1
            border.color: dot.chosen ? root.ringColor : "#26000000"

            MouseArea {
                anchors.fill: parent
                cursorShape: Qt.PointingHandCursor
                onClicked: root.picked(dot.name)
            }
        }
        // qmllint enable unqualified
    }
}
