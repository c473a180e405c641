import QtQuick
import GlimmoraApp
import QtQuick.Controls

// A labelled slider. It never writes its own value: `moved` reports a drag and
// the owner writes the setting back, which flows in again through `value`.
Column {
    id: root

    property string label
    property string description
    property real value: 0
    property real from: 0
    property real to: 100
    property string unit

    signal moved(real newValue)

    spacing: AppTheme.px(6)

    Item {
        width: root.width
        height: Math.max(labels.implicitHeight, readout.implicitHeight)

        Column {
            id: labels

            anchors.left: parent.left
            anchors.right: readout.left
            anchors.rightMargin: AppTheme.px(8)
            spacing: AppTheme.px(2)

            Text {
                width: parent.width
                text: root.label
                elide: Text.ElideRight
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeBody
                color: AppTheme.textPrimary
            }

            Text {
                visible: root.description !== ""
                width: parent.width
                text: root.description
                wrapMode: Text.WordWrap
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeCaption
                color: AppTheme.textSecondary
            }
        }

        Text {
            id: readout

            objectName: "winSliderReadout"
            anchors.right: parent.right
            width: Math.max(AppTheme.px(48), readout.implicitWidth)
            horizontalAlignment: Text.AlignRight
            text: Math.round(root.value) + " " + root.unit
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
            color: AppTheme.textPrimary
        }
    }

    Slider {
        id: slider

        objectName: "winSliderControl"
        width: root.width
        from: root.from
        to: root.to
        value: root.value
        // onMoved fires for user input only, never for the binding above.
        onMoved: root.moved(slider.value)

        background: Rectangle {
            implicitWidth: AppTheme.px(200)
            implicitHeight: AppTheme.px(4)
            x: slider.leftPadding
            y: slider.topPadding + (slider.availableHeight - height) / 2
            width: slider.availableWidth
            height: AppTheme.px(4)
            radius: height / 2
            color: "#3AFFFFFF"

            Rectangle {
                width: slider.visualPosition * parent.width
                height: parent.height
                radius: parent.radius
                color: AppTheme.accentColor

                Behavior on width {
                    NumberAnimation { duration: AppTheme.durationFast }
                }
            }
        }

        handle: Rectangle {
            implicitWidth: AppTheme.px(20)
            implicitHeight: AppTheme.px(20)
            x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
            y: slider.topPadding + (slider.availableHeight - height) / 2
            radius: width / 2
            color: slider.pressed ? "#E0E0E0" : "#FFFFFF"
            border.width: 2
            border.color: AppTheme.accentColor
        }
    }
}
