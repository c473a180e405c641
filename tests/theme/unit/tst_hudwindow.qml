import QtQuick
import QtTest
import GlimmoraApp

TestCase {
    id: testCase

    property HudWindow hud: null

    name: "HudWindow"
    when: windowShown

    SignalSpy {
        id: flashSpy

        signalName: "opacityChanged"
    }

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

    function init() {
        // Reset before the window exists, so that no toast reacts to it.
        appController.captureLastPath = "";
        appController.captureStatus = "";
        settingsManager.uiScale = 1.2;
        settingsManager.overlayControlsAlwaysVisible = false;
        settingsManager.keystrokePosition = 1;
        appController.captureInProgress = false;
        appController.recordingAvailable = true;
        appController.recordingState = 0;
        appController.regionSelecting = false;
        appController.settingsVisible = false;
        appController.hideSettingsCalls = 0;
        appController.toolbarRect = zero();
        appController.statusBarRect = zero();
        appController.toastRect = zero();
        appController.modalRect = zero();
        appController.controlsRevealRect = zero();
        appController.cursor = Qt.point(-1000, -1000);
        hud = createTemporaryObject(hudComponent, testCase);
        verify(hud);
        // The content takes the window's size when the first resize arrives.
        tryCompare(hud.contentItem, "width", 1280);
    }

    function test_revealRectPublished_data() {
        return [
            { tag: "shown: the top strip in global coordinates", capture: false, region: false, shown: true },
            { tag: "zero while a capture runs", capture: true, region: false, shown: false },
            { tag: "zero while a region is being selected", capture: false, region: true, shown: false },
        ];
    }

    function test_revealRectPublished(data) {
        const strip = Qt.rect(1920, 40, 1280, AppTheme.px(28));
        tryCompare(appController, "controlsRevealRect", strip);
        appController.captureInProgress = data.capture;
        appController.regionSelecting = data.region;
        compare(hud.uiVisible, data.shown);
        tryCompare(appController, "controlsRevealRect", data.shown ? strip : zero());
        compare(findChild(hud.contentItem, "controlsRevealStrip").visible, data.shown);
    }

    function test_revealRectFollowsWindow() {
        tryCompare(appController, "controlsRevealRect", Qt.rect(1920, 40, 1280, 34));
        hud.x = 0;
        hud.width = 1920;
        settingsManager.uiScale = 1.5;
        tryCompare(appController, "controlsRevealRect", Qt.rect(0, 40, 1920, 42));
    }

    function test_chromeVisibility_data() {
        return [
            { tag: "hidden at rest", always: false, settings: false, moving: false, capture: false, chrome: false },
            { tag: "held by the always-visible setting", always: true, settings: false, moving: false, capture: false, chrome: true },
            { tag: "held while settings are open", always: false, settings: true, moving: false, capture: false, chrome: true },
            { tag: "held during a toolbar move", always: false, settings: false, moving: true, capture: false, chrome: true },
            { tag: "a capture hides it whatever holds it", always: true, settings: true, moving: false, capture: true, chrome: false },
        ];
    }

    function test_chromeVisibility(data) {
        settingsManager.overlayControlsAlwaysVisible = data.always;
        appController.settingsVisible = data.settings;
        appController.toolbarMoving = data.moving;
        appController.captureInProgress = data.capture;
        compare(hud.controlsChromeVisible, data.chrome);
        appController.toolbarMoving = false;
    }

    function test_hoverRevealsThenHides() {
        const strip = findChild(hud.contentItem, "controlsRevealStrip");
        mouseMove(strip, 200, 5);
        verify(hud.controlsRevealByHover);
        verify(hud.controlsChromeVisible);
        // The pointer is outside every control: the chrome goes 520 ms later.
        wait(300);
        verify(hud.controlsRevealByHover);
        tryCompare(hud, "controlsRevealByHover", false, 2000);
        verify(!hud.controlsChromeVisible);
    }

    function test_restingInControlsKeepsChrome() {
        appController.toolbarRect = Qt.rect(2200, 40, 500, 60);
        appController.cursor = Qt.point(2300, 70);
        hud.revealControls();
        wait(1300);
        verify(hud.controlsRevealByHover);
        appController.cursor = Qt.point(2300, 500);
        tryCompare(hud, "controlsRevealByHover", false, 2000);
    }

    function test_clickHidesHoverReveal_data() {
        return [
            { tag: "click outside the chrome hides at once", x: 2500, y: 600, hides: true },
            { tag: "click on the toolbar keeps it", x: 2300, y: 70, hides: false },
            { tag: "click on the toolbar's right edge keeps it", x: 2700, y: 70, hides: false },
            { tag: "click in a modal keeps it", x: 3000, y: 300, hides: false },
            { tag: "click on the bare reveal strip hides", x: 3100, y: 45, hides: true },
        ];
    }

    function test_clickHidesHoverReveal(data) {
        appController.toolbarRect = Qt.rect(2200, 40, 500, 60);
        appController.modalRect = Qt.rect(2900, 200, 200, 200);
        hud.revealControls();
        appController.mouseClicked(Qt.point(data.x, data.y), 1);
        compare(hud.controlsRevealByHover, !data.hides);
    }

    function test_chromeRect_data() {
        return [
            { tag: "shown element goes out translated", chrome: true, itemVisible: true, expected: Qt.rect(1930, 60, 100, 30) },
            { tag: "hidden chrome publishes zero", chrome: false, itemVisible: true, expected: Qt.rect(0, 0, 0, 0) },
            { tag: "invisible element publishes zero", chrome: true, itemVisible: false, expected: Qt.rect(0, 0, 0, 0) },
        ];
    }

    function test_chromeRect(data) {
        settingsManager.overlayControlsAlwaysVisible = data.chrome;
        const item = createTemporaryQmlObject("import QtQuick; Item {}", hud.contentItem);
        item.visible = data.itemVisible;
        compare(hud.chromeRect(item, Qt.rect(10, 20, 100, 30)), data.expected);
    }

    function test_keystrokeCardPlacement_data() {
        return [
            { tag: "left with a margin", position: 0, x: 48 },
            { tag: "centred", position: 1, x: 540 },
            { tag: "right with a margin", position: 2, x: 1280 - 200 - 48 },
        ];
    }

    function test_keystrokeCardPlacement(data) {
        settingsManager.keystrokePosition = data.position;
        compare(hud.keystrokeCardX(200), data.x);
        compare(hud.keystrokeCardY(60), 720 - 60 - 144);
    }

    function test_settingsBackdrop() {
        const backdrop = findChild(hud.contentItem, "settingsBackdrop");
        verify(!backdrop.visible);
        settingsManager.uiScale = 0.9;
        appController.settingsVisible = true;
        verify(backdrop.visible);
        // The panel keeps the clicks over it; beside it they close the settings.
        const panel = hud.activeSettingsPanel();
        verify(panel.visible);
        mouseClick(panel, panel.width / 2, AppTheme.px(20));
        compare(appController.hideSettingsCalls, 0);
        mouseClick(backdrop, 5, 5);
        compare(appController.hideSettingsCalls, 1);
        verify(!backdrop.visible);
    }

    function test_pauseMenuClosesOnAnyPressBesideIt_data() {
        return [
            { tag: "left button", button: Qt.LeftButton },
            { tag: "right button", button: Qt.RightButton },
        ];
    }

    function test_pauseMenuClosesOnAnyPressBesideIt(data) {
        settingsManager.overlayControlsAlwaysVisible = true;
        const toolbar = findChild(hud.contentItem, "toolbar");
        const menu = findChild(toolbar, "pauseMenu");
        menu.open = true;
        tryCompare(menu, "visible", true);
        // Its own margin keeps it open; the rest of the toolbar closes it.
        mouseClick(menu, menu.width / 2, 2, data.button);
        verify(menu.open);
        mouseClick(toolbar, toolbar.width - 4, toolbar.height - 4, data.button);
        verify(!menu.open);
    }

    function test_captureToast_data() {
        return [
            { tag: "success names the file after the last slash", status: "Capture saved",
              path: "/home/ada/Pictures/Glimmora-20260101-120000.png", message: "Capture saved  ·  Glimmora-20260101-120000.png", error: false },
            { tag: "success names the file after the last backslash", status: "Capture saved",
              path: "C:\\Users\\ada\\Pictures\\Glimmora-1.jpg", message: "Capture saved  ·  Glimmora-1.jpg", error: false },
            { tag: "mixed separators take the last of either", status: "Capture saved",
              path: "C:/Users\\ada/shots\\Glimmora-2.webp", message: "Capture saved  ·  Glimmora-2.webp", error: false },
            { tag: "success without a path has no name", status: "Capture saved", path: "", message: "Capture saved", error: false },
            { tag: "an error shows its own text", status: "Could not write /tmp/x.png: disk full",
              path: "/tmp/x.png", message: "Could not write /tmp/x.png: disk full", error: true },
            { tag: "only the exact English text counts as success", status: "capture saved", path: "/tmp/a.png",
              message: "capture saved", error: true },
        ];
    }

    function test_captureToast(data) {
        const feedback = findChild(hud.contentItem, "captureFeedback");
        const flash = findChild(feedback, "captureFlash");
        const toast = findChild(feedback, "captureToast");
        flashSpy.target = flash;
        flashSpy.clear();
        appController.captureLastPath = data.path;
        appController.captureStatus = data.status;
        compare(feedback.message, data.message);
        compare(feedback.isError, data.error);
        compare(findChild(feedback, "captureToastDot").color, Qt.color(data.error ? "#F06060" : "#4ADE80"));
        tryVerify(() => toast.opacity > 0.9, 1000);
        // A failed capture shows no flash at all.
        compare(flashSpy.count > 0, !data.error);
    }

    function test_toastStaysThenFades() {
        const toast = findChild(hud.contentItem, "captureToast");
        appController.captureStatus = "Capture saved";
        tryVerify(() => toast.opacity > 0.9, 1000);
        wait(2000);
        compare(toast.opacity, 1);
        tryCompare(toast, "visible", false, 3000);
    }

    // Endless pulses run only while they are on screen: a toolbar slid out
    // of sight, or hidden for a capture, shows nothing of them.
    function test_pulsesRunOnlyOnScreen_data() {
        return [
            { tag: "REC while recording", pulse: "recPulse", recording: 1, capture: false },
            { tag: "capture ring while a capture is pending", pulse: "ringPulse", recording: 0, capture: true },
        ];
    }

    function test_pulsesRunOnlyOnScreen(data) {
        const toolbar = findChild(hud.contentItem, "toolbar");
        const pulse = findChild(toolbar, data.pulse);
        verify(pulse);
        appController.recordingState = data.recording;
        settingsManager.overlayControlsAlwaysVisible = true;
        tryCompare(toolbar, "visible", true);
        if (!data.capture) {
            tryCompare(pulse, "running", true);
            // It does pulse: the value leaves its resting point.
            tryVerify(() => pulse.value < pulse.rest - 0.1, 1500);
        }
        settingsManager.overlayControlsAlwaysVisible = false;
        tryCompare(toolbar, "visible", false, 2000);
        compare(pulse.running, false);
        appController.captureInProgress = data.capture;
        compare(pulse.running, false);
        settingsManager.overlayControlsAlwaysVisible = true;
        // A capture keeps the toolbar hidden, and its ring with it.
        wait(300);
        compare(toolbar.visible, !data.capture);
        compare(pulse.running, !data.capture);
        appController.captureInProgress = false;
    }

    function test_widenedRecordSlotStaysInTheToolbar() {
        settingsManager.overlayControlsAlwaysVisible = true;
        const toolbar = findChild(hud.contentItem, "toolbar");
        const pill = findChild(toolbar, "toolbarPill");
        const slot = findChild(toolbar, "recordSlot");
        const narrowPill = pill.width;
        appController.recordingState = 1;
        tryCompare(slot, "width", AppTheme.px(124));
        tryVerify(() => pill.width >= narrowPill + AppTheme.px(124 - 44) - 1, 1000);
        const right = slot.mapToItem(pill, slot.width, 0).x;
        verify(right <= pill.width - AppTheme.px(6) + 0.5, "slot ends at " + right + " in " + pill.width);
        // The toolbar stays centred in its window as it grows.
        compare(toolbar.x, Math.round((hud.width - toolbar.width) / 2));
    }
}
