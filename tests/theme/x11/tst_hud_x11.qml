import QtQuick
import QtTest
import GlimmoraApp

// What a presenter sees of the HUD on a real, composited X server: it covers
// the desktop without hiding it, and its backdrop and toast do show.
TestCase {
    id: testCase

    property Window desktop: null
    property HudWindow hud: null

    name: "HudOnX11"
    when: windowShown

    Component {
        id: desktopComponent

        Window {
            x: 0
            y: 0
            width: 1920
            height: 1080
            color: "#808080"
            flags: Qt.Window | Qt.FramelessWindowHint
            visible: true
        }
    }

    Component {
        id: hudComponent

        HudWindow {
            x: 0
            y: 0
            width: 1920
            height: 1080
            visible: true
        }
    }

    function pixel(x: int, y: int): color {
        return themeTest.screenPixel(x, y); // qmllint disable unqualified
    }

    function grey(c: color): real {
        return Math.round(c.r * 255);
    }

    function init() {
        appController.captureLastPath = "";
        appController.captureStatus = "";
        appController.settingsVisible = false;
        desktop = createTemporaryObject(desktopComponent, testCase);
        tryVerify(() => testCase.grey(testCase.pixel(300, 500)) === 128, 5000, "the stand-in desktop shows");
        hud = createTemporaryObject(hudComponent, testCase);
        tryCompare(hud.contentItem, "width", 1920, 5000);
        wait(200);
    }

    function test_restingHudLeavesDesktopVisible() {
        compare(grey(pixel(300, 500)), 128);
        compare(grey(pixel(960, 20)), 128);
    }

    function test_settingsBackdropDimsDesktop() {
        appController.settingsVisible = true;
        // "#50000000" over grey 128 leaves 128 * (1 - 80 / 255), about 88.
        tryVerify(() => Math.abs(testCase.grey(testCase.pixel(300, 500)) - 88) <= 2, 3000,
                  "backdrop dims the desktop, got " + grey(pixel(300, 500)));
    }

    function test_errorToastShowsAtTheBottom() {
        appController.captureStatus = "Could not write the file";
        const toast = findChild(hud.contentItem, "captureToast");
        tryVerify(() => toast.opacity === 1, 2000);
        const centre = toast.mapToGlobal(toast.width / 2, toast.height / 2);
        verify(centre.y > 1080 - AppTheme.px(80) - toast.height);
        // The pill is nearly opaque "#141820" over the grey desktop.
        tryVerify(() => testCase.grey(testCase.pixel(Math.round(centre.x), Math.round(centre.y))) < 40, 2000);
        const dot = findChild(hud.contentItem, "captureToastDot");
        const dotCentre = dot.mapToGlobal(dot.width / 2, dot.height / 2);
        const red = pixel(Math.round(dotCentre.x), Math.round(dotCentre.y));
        verify(red.r > 0.7 && red.g < 0.5, "dot reads " + red);
        // Beside the toast the desktop is untouched.
        compare(grey(pixel(300, 500)), 128);
    }
}
