import QtQuick
import GlimmoraApp

// Shows one click: a dot, three expanding rings and an optional button letter.
// Every element exists once; a trigger restarts them all at the new point.
Item {
    id: root

    property real cx: 0
    property real cy: 0
    property color ringColor: "#FFFFFF"
    property string label

    // Bound, so a changed setting shapes the next ripple at once.
    readonly property real halfSize: settingsManager.rippleSize / 2
    readonly property int dur1: settingsManager.rippleDuration
    readonly property int dur2: root.dur1 + 60
    readonly property int dur3: root.dur1 + 110

    function trigger(x: real, y: real, newColor: string, labelText: string) {
        root.cx = x;
        root.cy = y;
        root.ringColor = newColor ? newColor : settingsManager.leftClickColor;
        root.label = labelText ? labelText : "";
        ring2Animation.stop();
        ring3Animation.stop();
        ring2.opacity = 0;
        ring3.opacity = 0;
        dotAnimation.restart();
        ring1Animation.restart();
        ring2Timer.restart();
        ring3Timer.restart();
    }

    anchors.fill: parent

    component Ring: Rectangle {
        id: ring

        required property real centerX
        required property real centerY
        required property real halfSize

        x: ring.centerX - ring.halfSize
        y: ring.centerY - ring.halfSize
        width: 2 * ring.halfSize
        height: 2 * ring.halfSize
        radius: ring.halfSize
        color: "transparent"
        border.width: 1.5
        opacity: 0
        scale: 0.4
    }

    component RingAnimation: ParallelAnimation {
        id: ringAnimation

        required property Item ring
        required property real startOpacity
        required property int duration

        NumberAnimation {
            target: ringAnimation.ring
            property: "scale"
            from: 0.4
            to: 1.4
            duration: ringAnimation.duration
            easing.type: Easing.OutCubic
        }
        NumberAnimation {
            target: ringAnimation.ring
            property: "opacity"
            from: ringAnimation.startOpacity
            to: 0
            duration: ringAnimation.duration
            easing.type: Easing.OutCubic
        }
    }

    Rectangle {
        id: dot

        objectName: "rippleDot"
        readonly property int size: AppTheme.px(10)

        x: root.cx - dot.size / 2
        y: root.cy - dot.size / 2
        width: dot.size
        height: dot.size
        radius: dot.size / 2
        color: root.ringColor
        opacity: 0
        scale: 0.85
    }

    Ring {
        id: ring1

        objectName: "rippleRing1"
        centerX: root.cx
        centerY: root.cy
        halfSize: root.halfSize
        border.color: root.ringColor
    }
    Ring {
        id: ring2

        objectName: "rippleRing2"
        centerX: root.cx
        centerY: root.cy
        halfSize: root.halfSize
        border.color: root.ringColor
    }
    Ring {
        id: ring3

        objectName: "rippleRing3"
        centerX: root.cx
        centerY: root.cy
        halfSize: root.halfSize
        border.color: root.ringColor
    }

    Text {
        objectName: "rippleLabel"
        visible: root.label !== ""
        x: root.cx - width / 2
        y: root.cy + root.halfSize * 0.72
        text: root.label
        color: root.ringColor
        font.family: AppTheme.monoFamily
        font.pixelSize: AppTheme.px(10)
        // Without a label the rings' opacities are not read at all.
        opacity: root.label !== "" ? Math.max(ring1.opacity, ring2.opacity, ring3.opacity) : 0
    }

    SequentialAnimation {
        id: dotAnimation

        ParallelAnimation {
            NumberAnimation {
                target: dot
                property: "opacity"
                from: 0.95
                to: 0.8
                duration: 70
                easing.type: Easing.OutQuad
            }
            NumberAnimation {
                target: dot
                property: "scale"
                from: 0.85
                to: 1.0
                duration: 70
                easing.type: Easing.OutBack
            }
        }
        NumberAnimation {
            objectName: "dotFade"
            target: dot
            property: "opacity"
            to: 0
            duration: Math.max(120, root.dur1 - 70)
            easing.type: Easing.OutCubic
        }
    }

    RingAnimation {
        id: ring1Animation

        objectName: "ring1Animation"
        ring: ring1
        startOpacity: 0.8
        duration: root.dur1
    }
    RingAnimation {
        id: ring2Animation

        objectName: "ring2Animation"
        ring: ring2
        startOpacity: 0.7
        duration: root.dur2
    }
    RingAnimation {
        id: ring3Animation

        objectName: "ring3Animation"
        ring: ring3
        startOpacity: 0.6
        duration: root.dur3
    }

    Timer {
        id: ring2Timer

        interval: 60
        onTriggered: ring2Animation.restart()
    }
    Timer {
        id: ring3Timer

        interval: 120
        onTriggered: ring3Animation.restart()
    }
}
