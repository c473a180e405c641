import QtQuick
import QtTest
import GlimmoraApp

Item {
    id: scene

    width: 640
    height: 480

    ClickRipple {
        id: ripple
    }

    SignalSpy {
        id: ring2Started

        target: testCase.ring2Animation
        signalName: "started"
    }
    SignalSpy {
        id: ring3Started

        target: testCase.ring3Animation
        signalName: "started"
    }

    Connections {
        target: testCase.ring2Animation

        function onStarted() {
            testCase.ring2StartedAt = Date.now();
        }
    }

    TestCase {
        id: testCase

        property real ring2StartedAt: 0

        name: "ClickRipple"

        readonly property var ring2Animation: findChild(ripple, "ring2Animation")
        readonly property var ring3Animation: findChild(ripple, "ring3Animation")

        function init() {
            settingsManager.rippleSize = 48;
            settingsManager.rippleDuration = 550;
            settingsManager.leftClickColor = "#F4A65A";
            settingsManager.uiScale = 1.2;
            ring2Started.clear();
            ring3Started.clear();
        }

        function test_trigger_data() {
            return [
                { tag: "given colour and label", color: "#5DA8F0", label: "R", expectColor: "#5DA8F0", expectLabel: "R" },
                { tag: "empty colour falls back to the left-click colour", color: "", label: "L", expectColor: "#C57BE0", expectLabel: "L" },
                { tag: "no label leaves the text empty", color: "#5EC27A", label: undefined, expectColor: "#5EC27A", expectLabel: "" },
            ];
        }

        function test_trigger(data) {
            // A colour set after start-up: the fallback reads the setting live.
            settingsManager.leftClickColor = "#C57BE0";
            ripple.trigger(120, 80, data.color, data.label);
            compare(ripple.cx, 120);
            compare(ripple.cy, 80);
            compare(ripple.ringColor, Qt.color(data.expectColor));
            compare(ripple.label, data.expectLabel);
            const label = findChild(ripple, "rippleLabel");
            compare(label.visible, data.expectLabel !== "");
        }

        // A second click inside 60 ms restarts the timers: rings 2 and 3 start
        // once each, at the later point.
        function test_secondTriggerRestartsRings() {
            ripple.trigger(100, 100, "#FFFFFF", "");
            wait(30);
            ripple.trigger(300, 200, "#FFFFFF", "");
            const secondAt = Date.now();
            tryCompare(ring3Started, "count", 1, 1000);
            verify(testCase.ring2StartedAt - secondAt >= 50,
                   "ring 2 started " + (testCase.ring2StartedAt - secondAt) + " ms after the second click");
            wait(200);
            compare(ring2Started.count, 1);
            compare(ring3Started.count, 1);
            const ring2 = findChild(ripple, "rippleRing2");
            compare(ring2.x + ring2.width / 2, 300);
            compare(ring2.y + ring2.height / 2, 200);
        }

        function test_newTriggerClearsOldRings() {
            ripple.trigger(100, 100, "#FFFFFF", "");
            tryVerify(() => findChild(ripple, "rippleRing3").opacity > 0, 1000);
            ripple.trigger(300, 200, "#FFFFFF", "");
            compare(findChild(ripple, "rippleRing2").opacity, 0);
            compare(findChild(ripple, "rippleRing3").opacity, 0);
            verify(findChild(ripple, "rippleRing1").opacity > 0.5);
        }

        function test_ringsEndAtSizeTimes1_4_data() {
            return [
                { tag: "size 80 ends at 112", size: 80, diameter: 112 },
                { tag: "size 48 ends at 67.2", size: 48, diameter: 67.2 },
            ];
        }

        function test_ringsEndAtSizeTimes1_4(data) {
            settingsManager.rippleSize = data.size;
            settingsManager.rippleDuration = 200;
            ripple.trigger(200, 200, "#FFFFFF", "");
            const ring1 = findChild(ripple, "rippleRing1");
            tryVerify(() => !findChild(ripple, "ring1Animation").running, 2000);
            fuzzyCompare(ring1.width * ring1.scale, data.diameter, 0.001);
            compare(ring1.opacity, 0);
            tryVerify(() => !testCase.ring3Animation.running && ring3Started.count === 1, 2000);
            const ring3 = findChild(ripple, "rippleRing3");
            fuzzyCompare(ring3.width * ring3.scale, data.diameter, 0.001);
        }

        function test_dotFadeNeverShorterThan120_data() {
            return [
                { tag: "long ripple fades for duration - 70", duration: 550, fade: 480 },
                { tag: "short ripple still fades for 120", duration: 150, fade: 120 },
            ];
        }

        function test_dotFadeNeverShorterThan120(data) {
            settingsManager.rippleDuration = data.duration;
            compare(findChild(ripple, "dotFade").duration, data.fade);
        }

        function test_restsInvisible() {
            settingsManager.rippleDuration = 200;
            ripple.trigger(50, 50, "#FFFFFF", "L");
            tryVerify(() => [1, 2, 3].every(i => findChild(ripple, "rippleRing" + i).opacity === 0)
                      && findChild(ripple, "rippleDot").opacity === 0, 2000);
            compare(findChild(ripple, "rippleLabel").opacity, 0);
        }
    }
}
