import QtQuick
import GlimmoraApp

// A slider of the settings panels. Press and drag report the value under the
// pointer, linear and clamped to the track, without steps: the owner rounds,
// writes the setting, and the bound `value` moves the knob.
Item {
    id: root

    property real from: 0
    property real to: 100
    property real value: 0
    property string readout: ""
    property int readoutWidth: AppTheme.px(68)
    property color readoutColor: AppTheme.winTextDim
    property color trackColor: AppTheme.winTrack
    property color fillColor: AppTheme.accent
    property color knobColor: "white"
    property color knobBorderColor: "transparent"
    property int knobBorderWidth: 0
    property int knobSize: AppTheme.px(14)
    readonly property real fraction: root.to > root.from
                                     ? Math.max(0, Math.min(1, (root.value - root.from) / (root.to - root.from)))
                                     : 0

    signal moved(real value)

    implicitHeight: Math.max(Math.ceil(root.knobSize * 1.2), readoutText.implicitHeight)

    Item {
        id: track

        anchors.left: parent.left
        anchors.right: readoutText.left
        anchors.rightMargin: root.readoutWidth > 0 ? AppTheme.px(10) : 0
        anchors.verticalCenter: parent.verticalCenter
        height: root.knobSize
        // The knob's centre runs from one end of the line to the other.
        readonly property real span: Math.max(1, track.width - root.knobSize)

        Rectangle {
            x: root.knobSize / 2
            width: track.span
            height: AppTheme.px(4)
            radius: height / 2
            anchors.verticalCenter: parent.verticalCenter
            color: root.trackColor

            Rectangle {
                width: parent.width * root.fraction
                height: parent.height
                radius: parent.radius
                color: root.fillColor
            }
        }

        Rectangle {
            objectName: "sliderKnob"
            x: track.span * root.fraction
            width: root.knobSize
            height: root.knobSize
            radius: root.knobSize / 2
            color: root.knobColor
            border.width: root.knobBorderWidth
            border.color: root.knobBorderColor
            scale: dragArea.pressed ? 1.2 : 1.0

            Behavior on scale {
                NumberAnimation { duration: 80 }
            }
        }

        MouseArea {
            id: dragArea

            function report(pointerX: real) {
                const fraction = Math.max(0, Math.min(1, (pointerX - root.knobSize / 2) / track.span));
                root.moved(root.from + fraction * (root.to - root.from));
            }

            anchors.fill: parent
            anchors.topMargin: -AppTheme.px(6)
            anchors.bottomMargin: -AppTheme.px(6)
            // A drag along the track must not scroll the page.
            preventStealing: true
            cursorShape: Qt.PointingHandCursor
            onPressed: mouse => dragArea.report(mouse.x)
            onPositionChanged: mouse => dragArea.report(mouse.x)
        }
    }

    Text {
        id: readoutText

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: root.readoutWidth
        visible: root.readoutWidth > 0
        horizontalAlignment: Text.AlignRight
        text: root.readout
        color: root.readoutColor
        font.family: AppTheme.monoFamily
        font.pixelSize: AppTheme.fontSizeCaption
    }
}
