import QtQuick
import QtTest
import GlimmoraApp

// The cards inside the HUD: where they publish their rectangles, how they
// follow the chrome, and the first-run, quit and help wiring.
TestCase {
    id: testCase

    property HudWindow hud: null

    name: "HudCards"
    when: windowShown

    Component {
        id: hudComponent

        HudWindow {
            x: 1920
            y: 40
            width: 1280
            height: 720
            visible: true
        }
    }

    function zero(): rect {
        return Qt.rect(0, 0, 0, 0);
    }

    function createHud(firstRunDone: bool) {
        settingsManager.firstRunDone = firstRunDone;
        hud = createTemporaryObject(hudComponent, testCase);
        verify(hud);
        tryCompare(hud.contentItem, "width", 1280);
    }

    function init() {
        settingsManager.uiScale = 1.2;
        settingsManager.overlayControlsAlwaysVisible = false;
        appController.captureInProgress = false;
        appController.regionSelecting = false;
        appController.settingsVisible = false;
        appController.overlayEnabled = true;
        appController.currentTool = "cursor";
        appController.modalActive = false;
        appController.quitConfirmations = [];
        appController.statusBarRect = zero();
        appController.helpButtonRect = zero();
        appController.shortcutCardRect = zero();
    }

    function test_rectanglesFollowTheChrome_data() {
        return [
            { tag: "published in global coordinates while the chrome shows", always: true, capture: false, shown: true },
            { tag: "zero while the chrome is hidden", always: false, capture: false, shown: false },
            { tag: "zero during a capture even when held", always: true, capture: true, shown: false },
        ];
    }

    function test_rectanglesFollowTheChrome(data) {
        createHud(true);
        settingsManager.overlayControlsAlwaysVisible = data.always;
        appController.captureInProgress = data.capture;
        const badge = findChild(hud.contentItem, "statusBadge");
        const size = AppTheme.px(32);
        const help = Qt.rect(1920 + 24, 40 + 720 - 77 - size, size, size);
        const card = findChild(hud.contentItem, "shortcutCard").cardRect;
        if (data.shown) {
            tryCompare(appController, "statusBarRect", Qt.rect(1920 + 24, 40 + 24, badge.width, size));
            tryCompare(appController, "helpButtonRect", help);
            tryCompare(appController, "shortcutCardRect", Qt.rect(1920 + card.x, 40 + card.y, card.width, card.height));
            // The card stands over the help button's place.
            compare(card.x + 1920, help.x);
            compare(card.y + card.height + 40, help.y + help.height);
        } else {
            wait(50);
            compare(appController.statusBarRect, zero());
            compare(appController.helpButtonRect, zero());
            compare(appController.shortcutCardRect, zero());
        }
    }

    function test_pinnedCardAppearsWithTheChrome() {
        createHud(true);
        verify(hud.shortcutPinned);
        const cardItem = findChild(hud.contentItem, "shortcutCard");
        const face = findChild(cardItem, "shortcutCard");
        verify(cardItem.visible);
        compare(face.opacity, 0);
        hud.revealControls();
        tryCompare(face, "opacity", 1, 2000);
        // The help button shows with the chrome, card or no card.
        tryCompare(findChild(hud.contentItem, "helpBtn"), "opacity", 1, 2000);
        tryVerify(() => appController.shortcutCardRect.width > 0, 1000);
    }

    function test_closeUnpinsTheCard() {
        createHud(true);
        settingsManager.overlayControlsAlwaysVisible = true;
        const cardItem = findChild(hud.contentItem, "shortcutCard");
        tryCompare(findChild(cardItem, "shortcutCard"), "opacity", 1, 2000);
        mouseClick(findChild(cardItem, "shortcutCardClose"));
        verify(!hud.shortcutPinned);
        verify(!cardItem.visible);
        tryCompare(appController, "shortcutCardRect", zero());
    }

    function test_helpButtonPinsAndPeeks_data() {
        return [
            { tag: "hold on an unpinned card shows it while held", pinned: false },
            { tag: "hold on a pinned card leaves it pinned", pinned: true },
        ];
    }

    function test_helpButtonPinsAndPeeks(data) {
        createHud(true);
        settingsManager.overlayControlsAlwaysVisible = true;
        hud.shortcutPinned = data.pinned;
        const button = findChild(hud.contentItem, "helpBtn");
        const cardItem = findChild(hud.contentItem, "shortcutCard");
        compare(cardItem.visible, data.pinned);
        compare(button.isOpen, data.pinned);
        button.peekStarted();
        verify(cardItem.visible);
        button.peekEnded();
        compare(cardItem.visible, data.pinned);
        compare(hud.shortcutPinned, data.pinned);
        button.toggled();
        compare(hud.shortcutPinned, !data.pinned);
        compare(button.isOpen, !data.pinned);
    }

    function test_onboardingAbsentAfterFirstRun() {
        createHud(true);
        verify(!findChild(hud.contentItem, "onboarding").visible);
    }

    function test_onboardingAtFirstStart() {
        createHud(false);
        const onboarding = findChild(hud.contentItem, "onboarding");
        verify(onboarding.visible);
        verify(onboarding.z > findChild(hud.contentItem, "statusBadge").z);
        // Visible from creation: no change was signalled to the controller.
        verify(!appController.modalActive);
        appController.modalActive = true;
        mouseClick(findChild(onboarding, "onboardingGotIt"));
        verify(settingsManager.firstRunDone);
        verify(!onboarding.visible);
        verify(!appController.modalActive);
    }

    function test_quitRequestOpensTheDialog_data() {
        return [
            { tag: "Esc hides it and leaves the program running", key: Qt.Key_Escape, tick: false, open: false, quits: [] },
            { tag: "Return quits and keeps asking", key: Qt.Key_Return, tick: false, open: true, quits: [false] },
            { tag: "Return with the box ticked stops asking", key: Qt.Key_Return, tick: true, open: true, quits: [true] },
        ];
    }

    function test_quitRequestOpensTheDialog(data) {
        createHud(true);
        const dialog = findChild(hud.contentItem, "quitDialog");
        verify(!dialog.visible);
        appController.quitRequested();
        verify(dialog.visible);
        verify(appController.modalActive);
        verify(dialog.activeFocus);
        if (data.tick)
            mouseClick(findChild(dialog, "quitCheckRow"));
        keyClick(data.key);
        compare(appController.quitConfirmations, data.quits);
        compare(dialog.visible, data.open);
        compare(appController.modalActive, data.open);
    }
}
