import QtQuick
import GlimmoraApp

// The macOS look's segmented control: one lit segment among equals.
Rectangle {
    id: root

    property var options: []
    property int activeIndex: -1

    signal picked(int index)

    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    width: segments.implicitWidth + AppTheme.px(4)
    height: AppTheme.px(28)
    radius: AppTheme.px(7)
    color: "#0F000000"

    Row {
        id: segments

        x: AppTheme.px(2)
        anchors.verticalCenter: parent.verticalCenter

        Repeater {
            model: root.options

            // Qt 6.4's linter does not see this document's ids inside a delegate.
            // qmllint disable unqualified
            delegate: Rectangle {
                id: segment

                required property string modelData
                required property int index

                width: Math.max(AppTheme.px(68), segmentText.implicitWidth + AppTheme.px(16))
                height: AppTheme.px(24)
                radius: AppTheme.px(6)
                color: segment.index === root.activeIndex ? "white" : "transparent"

                Text {
                    id: segmentText

                    anchors.centerIn: parent
                    text: segment.modelData
                    color: "#1D1D1F"
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.fontSizeCaption
                    font.weight: segment.index === root.activeIndex ? Font.DemiBold : Font.Normal
                }
                MouseArea {
                    anchors.fill: parent
                    onClicked: root.picked(segment.index)
                }
            }
            // qmllint enable unqualified
        }
    }
}
