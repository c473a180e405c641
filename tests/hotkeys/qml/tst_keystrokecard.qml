import QtQuick
import QtTest
import GlimmoraApp

Item {
    id: scene

    width: 800
    height: 300

    KeystrokeCard {
        id: card
    }

    TestCase {
        id: testCase

        name: "KeystrokeCard"
        when: windowShown

        readonly property Item actionLabel: findChild(card, "actionLabel")

        function caps(): var {
            const found = [];
            const visit = item => {
                if (item.objectName === "keyCap")
                    found.push(item);
                for (let i = 0; i < item.children.length; ++i)
                    visit(item.children[i]);
            };
            visit(card);
            return found;
        }

        // Reports the keys and waits until the rows have laid them out.
        function show(combo: string) {
            appController.reportKeystroke(combo);
            waitForItemPolished(findChild(card, "keyCaps"));
            waitForItemPolished(findChild(card, "content"));
        }

        function init() {
            settingsManager.keystrokesEnabled = true;
            settingsManager.keystrokeFadeMs = 1500;
            settingsManager.resetHotkeys();
            card.hide();
            tryCompare(card, "opacity", 0);
        }

        function test_content_data() {
            return [
                { tag: "Ctrl+C shows two caps and no label", combo: "Ctrl+C", caps: ["Ctrl", "C"], label: "" },
                { tag: "F5 shows one cap and the command", combo: "F5", caps: ["F5"], label: "Pause" },
                { tag: "Esc names the exit from drawing", combo: "Esc", caps: ["Esc"], label: "Cursor" },
                { tag: "a hotkey's key with another modifier is no command", combo: "Ctrl+F5", caps: ["Ctrl", "F5"], label: "" },
                { tag: "the capture commands carry no label", combo: "Ctrl+Shift+A", caps: ["Ctrl", "Shift", "A"], label: "" },
                { tag: "the command text must match exactly", combo: "Shift+Ctrl+Z", caps: ["Shift", "Ctrl", "Z"], label: "" },
            ];
        }

        function test_content(data) {
            appController.reportKeystroke(data.combo);
            compare(card.state, "visible");
            compare(testCase.caps().map(cap => cap.label), data.caps);
            compare(testCase.actionLabel.visible, data.label !== "");
            compare(testCase.actionLabel.text, data.label);
        }

        function test_labelFollowsTheMap() {
            settingsManager.setHotkeyForAction("pen", "Alt+P");
            appController.reportKeystroke("Alt+3");
            compare(testCase.actionLabel.text, "");
            appController.reportKeystroke("Alt+P");
            compare(testCase.actionLabel.text, "Pen");
        }

        function test_sharedSequenceTakesTheFirstCommand() {
            settingsManager.setHotkeyForAction("undo", "Ctrl+Shift+Z");
            appController.reportKeystroke("Ctrl+Shift+Z");
            compare(testCase.actionLabel.text, "Undo");
        }

        function test_appearsThenFades() {
            settingsManager.keystrokeFadeMs = 300;
            appController.reportKeystroke("F6");
            tryCompare(card, "opacity", 1, 1000);
            tryCompare(card, "scale", 1, 1000);
            tryCompare(card, "state", "hidden", 1000);
            tryCompare(card, "opacity", 0, 1000);
        }

        function test_repeatKeepsTheCardUp() {
            settingsManager.keystrokeFadeMs = 500;
            appController.reportKeystroke("Ctrl+C");
            wait(350);
            appController.reportKeystroke("Ctrl+C");
            wait(350);
            compare(card.state, "visible");
            tryCompare(card, "state", "hidden", 1000);
        }

        function test_nothingShowsWhileDisabled() {
            settingsManager.keystrokesEnabled = false;
            appController.reportKeystroke("Ctrl+C");
            compare(card.state, "hidden");
            wait(200);
            compare(card.opacity, 0);
        }

        function test_turningOffHidesAtOnce() {
            appController.reportKeystroke("Ctrl+C");
            compare(card.state, "visible");
            settingsManager.keystrokesEnabled = false;
            compare(card.state, "hidden");
        }

        function test_sizeFollowsContent() {
            testCase.show("I");
            const single = card.width;
            const cap = testCase.caps()[0];
            // A narrow letter still gets a cap as wide as it is tall.
            compare(cap.width, cap.height);
            verify(cap.height >= AppTheme.keyCapMinHeight);

            testCase.show("Ctrl+Shift+I");
            verify(card.width > 2 * single);
            for (const each of testCase.caps())
                verify(each.width >= each.height);

            testCase.show("F5");
            const withLabel = card.width;
            settingsManager.setHotkeyForAction("toggleOverlay", "F9");
            testCase.show("F5");
            verify(card.width < withLabel);
        }
    }
}
