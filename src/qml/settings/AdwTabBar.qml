import QtQuick
import GlimmoraApp

// The tab switcher of the Linux look: one pill divided evenly, with a single
// indicator that slides to the current tab.
Item {
    id: root

    property var labels: []
    property int currentIndex: 0

    signal picked(int index)

    height: AppTheme.px(42)

    Rectangle {
        id: pill

        readonly property real tabWidth: pill.width / Math.max(1, root.labels.length)

        anchors.centerIn: parent
        width: root.width - AppTheme.px(24)
        height: AppTheme.px(30)
        radius: AppTheme.px(8)
        color: AppTheme.linuxControlFill

        Rectangle {
            x: pill.tabWidth * root.currentIndex + AppTheme.px(2)
            y: AppTheme.px(2)
            width: pill.tabWidth - AppTheme.px(4)
            height: pill.height - AppTheme.px(4)
            radius: AppTheme.px(7)
            color: AppTheme.linuxSurface

            Behavior on x {
                NumberAnimation { duration: 150; easing.type: Easing.OutCubic }
            }
        }

        Row {
            Repeater {
                model: root.labels

                // Qt 6.4's linter does not see this document's ids inside a delegate.
                // qmllint disable unqualified
                delegate: Item {
                    id: tab

                    required property string modelData
                    required property int index

                    objectName: "linuxTab-" + index
                    width: pill.tabWidth
                    height: pill.height

                    Text {
                        anchors.centerIn: parent
                        text: tab.modelData
                        color: AppTheme.linuxText
                        opacity: tab.index === root.currentIndex ? 1 : 0.7
                        font.family: AppTheme.fontFamily
                        font.pixelSize: AppTheme.fontSizeBody
                        font.weight: tab.index === root.currentIndex ? Font.DemiBold : Font.Normal
                    }

                    MouseArea {
                        anchors.fill: parent
                        cursorShape: Qt.PointingHandCursor
                        onClicked: root.picked(tab.index)
                    }
                }
                // qmllint enable unqualified
            }
        }
    }
}
