import QtQuick
import QtTest
import GlimmoraApp

// The five cards on their own, against the stand-in controller and settings.
// A test case is not drawn, so the cards go into a visible scene.
Item {
    id: scene

    width: 1280
    height: 720

    TestCase {
        id: testCase

        readonly property var defaultHotkeys: ({
                                                   "toggleOverlay": "F5",
                                                   "openSettings": "F6",
                                                   "spotlight": "Alt+2",
                                                   "exitToCursor": "Esc",
                                                   "undo": "Ctrl+Z",
                                                   "quit": "Ctrl+Shift+Q"
                                               })

        name: "CardWidgets"
        when: windowShown

        Component {
            id: onboardingComponent

            Item {
                property alias card: card
                property int clicksBehind: 0

                width: 1280
                height: 720

                MouseArea {
                    anchors.fill: parent
                    onClicked: parent.clicksBehind += 1
                }

                OnboardingCard {
                    id: card
                }
            }
        }

        Component {
            id: quitComponent

            Item {
                property alias dialog: dialog

                width: 1280
                height: 720

                QuitDialog {
                    id: dialog
                }
            }
        }

        Component {
            id: helpComponent

            HelpButton {
                x: 40
                y: 600
            }
        }

        Component {
            id: shortcutComponent

            Item {
                property alias card: card

                width: 1280
                height: 720

                ShortcutReferenceCard {
                    id: card
                }
            }
        }

        Component {
            id: badgeComponent

            ModeBadge {
                x: 24
                y: 24
            }
        }

        SignalSpy {
            id: spyA
        }

        SignalSpy {
            id: spyB
        }

        function setHotkey(action: string, sequence: string) {
            const map = Object.assign({}, settingsManager.hotkeys);
            map[action] = sequence;
            settingsManager.hotkeys = map;
            settingsManager.hotkeysRevision += 1;
        }

        function init() {
            settingsManager.uiScale = 1.2;
            settingsManager.firstRunDone = false;
            settingsManager.hotkeys = testCase.defaultHotkeys;
            settingsManager.hotkeysRevision += 1;
            appController.overlayEnabled = true;
            appController.currentTool = "cursor";
            appController.toggleOverlayCalls = 0;
            appController.quitConfirmations = [];
            spyA.clear();
            spyB.clear();
        }

        // --- Onboarding ---------------------------------------------------------

        function test_onboardingButtonsFinishFirstRun_data() {
            return [
                { tag: "Got it", button: "onboardingGotIt" },
                { tag: "Don't show again does the same", button: "onboardingDontShow" },
            ];
        }

        function test_onboardingButtonsFinishFirstRun(data) {
            const holder = createTemporaryObject(onboardingComponent, scene);
            verify(holder.card.visible);
            mouseClick(findChild(holder.card, data.button));
            verify(settingsManager.firstRunDone);
            verify(!holder.card.visible);
            compare(holder.clicksBehind, 0);
        }

        function test_onboardingSwallowsClicksBehind() {
            const holder = createTemporaryObject(onboardingComponent, scene);
            mouseClick(holder, 30, 30);
            mouseClick(findChild(holder.card, "onboardingCard"));
            compare(holder.clicksBehind, 0);
            verify(holder.card.visible);
            verify(!settingsManager.firstRunDone);
        }

        function test_onboardingNeverWiderThanTheHud_data() {
            return [
                { tag: "normal zoom keeps the card's own width", scale: 1.2, hudWidth: 1280, width: 408 },
                { tag: "large zoom on a narrow HUD leaves the margin", scale: 3.0, hudWidth: 600, width: 600 - 120 },
            ];
        }

        function test_onboardingNeverWiderThanTheHud(data) {
            settingsManager.uiScale = data.scale;
            const holder = createTemporaryObject(onboardingComponent, scene);
            holder.width = data.hudWidth;
            const card = findChild(holder.card, "onboardingCard");
            compare(card.width, data.width);
            verify(card.x >= 0 && card.x + card.width <= data.hudWidth);
        }

        function test_onboardingChips_data() {
            return [
                { tag: "default keys, blank-joined", undo: "Ctrl+Z", toggle: "F5", keys: ["F5", "Alt 1–8", "Ctrl Z", "Esc", "?"] },
                { tag: "the logo key reads Super", undo: "Ctrl+Win+Z", toggle: "Win+F5", keys: ["Super F5", "Alt 1–8", "Ctrl Super Z", "Esc", "?"] },
            ];
        }

        function test_onboardingChips(data) {
            const holder = createTemporaryObject(onboardingComponent, scene);
            testCase.setHotkey("undo", data.undo);
            testCase.setHotkey("toggleOverlay", data.toggle);
            compare(holder.card.rows.map(row => row.keys), data.keys);
        }

        // --- Quit dialog --------------------------------------------------------

        function openQuitDialog(): QuitDialog {
            const holder = createTemporaryObject(quitComponent, scene);
            spyA.target = holder.dialog;
            spyA.signalName = "accepted";
            spyB.target = holder.dialog;
            spyB.signalName = "rejected";
            holder.dialog.visible = true;
            return holder.dialog;
        }

        function test_quitCheckBoxResetsOnEachOpening() {
            const dialog = testCase.openQuitDialog();
            verify(!dialog.dontAskAgain);
            mouseClick(findChild(dialog, "quitCheckRow"));
            verify(dialog.dontAskAgain);
            dialog.visible = false;
            verify(dialog.dontAskAgain);
            dialog.visible = true;
            verify(!dialog.dontAskAgain);
        }

        function test_quitKeys_data() {
            return [
                { tag: "Esc rejects", key: Qt.Key_Escape, accepted: 0, rejected: 1 },
                { tag: "Return accepts", key: Qt.Key_Return, accepted: 1, rejected: 0 },
                { tag: "keypad Enter accepts", key: Qt.Key_Enter, accepted: 1, rejected: 0 },
                { tag: "other keys do nothing", key: Qt.Key_Q, accepted: 0, rejected: 0 },
            ];
        }

        function test_quitKeys(data) {
            const dialog = testCase.openQuitDialog();
            verify(dialog.activeFocus);
            keyClick(data.key);
            compare(spyA.count, data.accepted);
            compare(spyB.count, data.rejected);
        }

        function test_quitClicks_data() {
            return [
                { tag: "backdrop cancels", target: "quitBackdrop", accepted: 0, rejected: 1 },
                { tag: "Cancel cancels", target: "quitCancelButton", accepted: 0, rejected: 1 },
                { tag: "Quit Glimmora confirms", target: "quitConfirmButton", accepted: 1, rejected: 0 },
                { tag: "the check row only ticks", target: "quitCheckRow", accepted: 0, rejected: 0 },
            ];
        }

        function test_quitClicks(data) {
            const dialog = testCase.openQuitDialog();
            const target = findChild(dialog, data.target);
            // The backdrop is clicked at its corner, outside the card.
            if (data.target === "quitBackdrop")
                mouseClick(target, 10, 10);
            else
                mouseClick(target);
            compare(spyA.count, data.accepted);
            compare(spyB.count, data.rejected);
        }

        function test_quitFooter_data() {
            const named = "triggered by Ctrl Shift Q · Esc to cancel · Enter to confirm";
            return [
                { tag: "names the quit hotkey at 90 %", scale: 0.9, quit: "Ctrl+Shift+Q", text: named },
                { tag: "names the quit hotkey at 100 %", scale: 1.0, quit: "Ctrl+Shift+Q", text: named },
                { tag: "names the quit hotkey at 150 %", scale: 1.5, quit: "Ctrl+Shift+Q", text: named },
                { tag: "the logo key reads Super", scale: 1.2, quit: "Win+Q", text: "triggered by Super Q · Esc to cancel · Enter to confirm" },
                { tag: "no hotkey", scale: 1.2, quit: "", text: "triggered by quit shortcut · Esc to cancel · Enter to confirm" },
            ];
        }

        function test_quitFooter(data) {
            settingsManager.uiScale = data.scale;
            const dialog = testCase.openQuitDialog();
            testCase.setHotkey("quit", data.quit);
            const footer = findChild(dialog, "quitFooter");
            compare(footer.text, data.text);
            // On one line, whole, inside the card.
            compare(footer.lineCount, 1);
            verify(footer.implicitWidth <= footer.width, footer.implicitWidth + " > " + footer.width);
        }

        // --- Help button --------------------------------------------------------

        function test_helpPressLength_data() {
            return [
                { tag: "a short press toggles", hold: 120, toggled: 1, peeks: 0 },
                { tag: "a hold peeks and its release ends the peek", hold: 400, toggled: 0, peeks: 1 },
            ];
        }

        function test_helpPressLength(data) {
            const button = createTemporaryObject(helpComponent, scene);
            const toggled = createTemporaryObject(spyComponent, testCase, { target: button, signalName: "toggled" });
            const started = createTemporaryObject(spyComponent, testCase, { target: button, signalName: "peekStarted" });
            const ended = createTemporaryObject(spyComponent, testCase, { target: button, signalName: "peekEnded" });
            mousePress(button);
            wait(data.hold);
            compare(started.count, data.peeks);
            compare(ended.count, 0);
            mouseRelease(button);
            compare(toggled.count, data.toggled);
            compare(started.count, data.peeks);
            compare(ended.count, data.peeks);
        }

        Component {
            id: spyComponent

            SignalSpy {}
        }

        // --- Shortcut card ------------------------------------------------------

        function test_shortcutKeyTexts_data() {
            return [
                { tag: "split at + and blank-joined", action: "spotlight", sequence: "Alt+2", keys: "Alt 2" },
                { tag: "Shift reads as its symbol", action: "undo", sequence: "Ctrl+Shift+Z", keys: "Ctrl ⇧ Z" },
                { tag: "Esc reads as its symbol", action: "exitToCursor", sequence: "Esc", keys: "⎋" },
                { tag: "Escape reads as the same symbol", action: "exitToCursor", sequence: "Escape", keys: "⎋" },
                { tag: "the logo key reads Super", action: "openSettings", sequence: "Win+Shift+F6", keys: "Super ⇧ F6" },
                { tag: "a single key stays as it is", action: "toggleOverlay", sequence: "F9", keys: "F9" },
                { tag: "no hotkey gives an empty chip", action: "quit", sequence: "", keys: "" },
            ];
        }

        function test_shortcutKeyTexts(data) {
            const holder = createTemporaryObject(shortcutComponent, scene);
            testCase.setHotkey(data.action, data.sequence);
            compare(findChild(holder.card, "shortcutKey_" + data.action).keys, data.keys);
            compare(findChild(holder.card, "shortcutKey_").keys, "Alt 1-8");
        }

        function test_shortcutQuitSentence_data() {
            return [
                { tag: "names the quit keys", quit: "Ctrl+Shift+Q",
                  text: "Quit with Ctrl ⇧ Q, the system tray menu, or long-press the pause button in the toolbar." },
                { tag: "falls back without a hotkey", quit: "",
                  text: "Quit with the quit shortcut, the system tray menu, or long-press the pause button in the toolbar." },
            ];
        }

        function test_shortcutQuitSentence(data) {
            const holder = createTemporaryObject(shortcutComponent, scene);
            testCase.setHotkey("quit", data.quit);
            compare(findChild(holder.card, "shortcutCardQuitText").text, data.text);
        }

        // --- Mode badge ---------------------------------------------------------

        function test_badgeStates_data() {
            const mute = AppTheme.textMute;
            const green = AppTheme.green;
            const accent = AppTheme.accent;
            return [
                { tag: "paused whatever the tool", enabled: false, tool: "pen", toggle: "F5", dot: mute, ring: false,
                  label: "Glimmora · Paused", hint: "F5 to resume" },
                { tag: "paused hint reads Super", enabled: false, tool: "cursor", toggle: "Win+F5", dot: mute, ring: false,
                  label: "Glimmora · Paused", hint: "Super F5 to resume" },
                { tag: "pen is drawing", enabled: true, tool: "pen", toggle: "F5", dot: green, ring: true,
                  label: "Glimmora · Pen", hint: "Esc to cursor" },
                { tag: "highlighter is drawing", enabled: true, tool: "highlighter", toggle: "F5", dot: green, ring: true,
                  label: "Glimmora · Highlighter", hint: "Esc to cursor" },
                { tag: "cursor is neither", enabled: true, tool: "cursor", toggle: "F5", dot: accent, ring: true,
                  label: "Glimmora · Cursor", hint: "F5 to pause" },
                { tag: "spotlight is neither", enabled: true, tool: "spotlight", toggle: "Ctrl+Win+F5", dot: accent, ring: true,
                  label: "Glimmora · Spotlight", hint: "Ctrl Super F5 to pause" },
                { tag: "an unknown tool shows its id", enabled: true, tool: "laser", toggle: "F5", dot: green, ring: true,
                  label: "Glimmora · laser", hint: "Esc to cursor" },
            ];
        }

        function test_badgeStates(data) {
            const badge = createTemporaryObject(badgeComponent, scene);
            appController.overlayEnabled = data.enabled;
            appController.currentTool = data.tool;
            testCase.setHotkey("toggleOverlay", data.toggle);
            compare(findChild(badge, "badgeLabel").text, data.label);
            compare(findChild(badge, "badgeHint").text, data.hint);
            compare(findChild(badge, "badgeDot").color, data.dot);
            compare(findChild(badge, "badgeRing").visible, data.ring);
        }

        function test_badgeClickTogglesOverlay() {
            const badge = createTemporaryObject(badgeComponent, scene);
            mouseClick(badge);
            compare(appController.toggleOverlayCalls, 1);
            compare(findChild(badge, "badgeLabel").text, "Glimmora · Paused");
            mouseClick(badge);
            compare(appController.toggleOverlayCalls, 2);
            compare(findChild(badge, "badgeLabel").text, "Glimmora · Cursor");
        }

        function test_badgeWidthFollowsItsText() {
            const badge = createTemporaryObject(badgeComponent, scene);
            // The row lays its texts out at the next polish.
            tryVerify(() => badge.width > AppTheme.px(24));
            const before = badge.width;
            appController.currentTool = "highlighter";
            tryVerify(() => badge.width > before, 1000);
        }
    }
}
