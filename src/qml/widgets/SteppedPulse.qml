import QtQuick

// An endless pulse: `value` runs from `rest` to `peak` over `outDuration`, back
// over `backDuration`, and again. It advances in steps of its own timer, not in
// every frame: each step redraws the whole full-screen window it lies in, which
// a software renderer pays for in full, so the step rate bounds the cost. Its
// user runs it only while the pulsing item is on screen; stopped, it rests.
QtObject {
    id: root

    property bool running: false
    property real rest: 1.0
    property real peak: 0.45
    property int outDuration: 620
    property int backDuration: 620
    // Quadratic easings of the two legs, as Easing.OutQuad and Easing.InQuad.
    property bool outEasesOut: false
    property bool backEasesIn: false
    // About 15 steps a second: as smooth as a 10 px label or a 2 px ring shows.
    property int stepInterval: 66
    readonly property real value: root.running ? root.valueAt(root.phase) : root.rest

    property real phase: 0
    property real startedAt: 0

    function valueAt(ms: real): real {
        if (ms < root.outDuration) {
            const t = ms / root.outDuration;
            const eased = root.outEasesOut ? 1 - (1 - t) * (1 - t) : t;
            return root.rest + (root.peak - root.rest) * eased;
        }
        const t = (ms - root.outDuration) / root.backDuration;
        const eased = root.backEasesIn ? t * t : t;
        return root.peak + (root.rest - root.peak) * eased;
    }

    onRunningChanged: {
        root.startedAt = Date.now();
        root.phase = 0;
    }

    property Timer ticker: Timer {
        interval: root.stepInterval
        repeat: true
        running: root.running
        onTriggered: root.phase = (Date.now() - root.startedAt) % (root.outDuration + root.backDuration)
    }
}
