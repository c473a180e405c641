import QtQuick
import QtTest
import "../../src/qml/overlay/SpotlightTracking.js" as Tracking

TestCase {
    id: testCase
    name: "SpotlightTracking"

    function test_snapDistance_data() {
        return [
            { tag: "small radius keeps the floor", radius: 60, expected: 2.5 },
            { tag: "default radius", radius: 120, expected: 2.5 },
            { tag: "large radius grows the distance", radius: 400, expected: 7.2 }
        ];
    }

    function test_snapDistance(data) {
        fuzzyCompare(Tracking.snapDistance(data.radius), data.expected, 1e-9);
    }

    function test_follow_data() {
        return [
            { tag: "beyond the snap distance the centre jumps", from: Qt.point(0, 0), to: Qt.point(10, 0),
              frame: 0.016, radius: 120, seconds: 0.06, expected: Qt.point(10, 0) },
            { tag: "a short step covers at least 72 percent", from: Qt.point(0, 0), to: Qt.point(2, 0),
              frame: 0.001, radius: 120, seconds: 0.5, expected: Qt.point(1.44, 0) },
            { tag: "a long frame covers more", from: Qt.point(0, 0), to: Qt.point(0, 2),
              frame: 0.2, radius: 120, seconds: 0.06, expected: Qt.point(0, 2 * (1 - Math.exp(-0.2 / 0.06))) },
            { tag: "exactly at the snap distance still eases", from: Qt.point(0, 0), to: Qt.point(2.5, 0),
              frame: 0.016, radius: 60, seconds: 0.5, expected: Qt.point(2.5 * 0.72, 0) }
        ];
    }

    function test_follow(data) {
        const p = Tracking.follow(data.from, data.to, data.frame, data.radius, data.seconds);
        fuzzyCompare(p.x, data.expected.x, 1e-9);
        fuzzyCompare(p.y, data.expected.y, 1e-9);
    }
}
