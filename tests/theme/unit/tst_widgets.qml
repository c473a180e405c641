import QtQuick
import QtTest
import GlimmoraApp

Item {
    id: scene

    width: 400
    height: 300

    CtxMenu {
        id: menu

        CtxItem {
            id: normalItem

            label: "Rectangle snip"
            shortcut: "Ctrl+Shift+S"
            iconSource: "qrc:/qt/qml/GlimmoraApp/src/assets/icons/snip-rectangle.svg"
        }
        CtxItem {
            id: disabledItem

            label: "Window snip"
            iconSource: "qrc:/qt/qml/GlimmoraApp/src/assets/icons/snip-window.svg"
            disabled: true
        }
        CtxItem {
            label: "Quit Glimmora"
            danger: true
        }
    }

    WinSlider {
        id: slider

        x: 20
        y: 20
        width: 300
        label: "Size"
        unit: "px"
        from: 20
        to: 120
        value: 48
    }

    Component {
        id: captureMenuComponent

        Item {
            property alias menu: captureMenu

            width: 600
            height: 400

            ToolbarCaptureMenu {
                id: captureMenu

                open: true
                panelX: 10
                panelY: 10
            }
        }
    }

    SignalSpy {
        id: normalSpy

        target: normalItem
        signalName: "triggered"
    }
    SignalSpy {
        id: disabledSpy

        target: disabledItem
        signalName: "triggered"
    }
    SignalSpy {
        id: movedSpy

        target: slider
        signalName: "moved"
    }

    TestCase {
        name: "CtxMenu"
        when: windowShown

        readonly property Item panel: findChild(menu, "ctxMenuPanel")

        function init() {
            menu.close();
            normalSpy.clear();
            disabledSpy.clear();
            mouseMove(scene, 399, 299);
        }

        function test_placement_data() {
            // The panel is px(220) = 264 wide at the default zoom; three rows plus
            // margins make it 3 * 43 + 14 = 143 high.
            return [
                { tag: "room on both sides opens right and down", x: 40, y: 30, flipX: false, flipY: false },
                { tag: "near the right edge flips left", x: 300, y: 30, flipX: true, flipY: false },
                { tag: "near the bottom edge flips up", x: 40, y: 250, flipX: false, flipY: true },
                { tag: "in the bottom right corner opens up and left", x: 390, y: 290, flipX: true, flipY: true },
                { tag: "exactly touching the right edge stays", x: 400 - 264, y: 30, flipX: false, flipY: false },
            ];
        }

        function test_placement(data) {
            menu.popup(data.x, data.y);
            verify(menu.visible);
            compare(panel.x, data.flipX ? data.x - panel.width : data.x);
            compare(panel.y, data.flipY ? data.y - panel.height : data.y);
        }

        function test_pressOutsideCloses_data() {
            return [
                { tag: "left button", button: Qt.LeftButton },
                { tag: "right button", button: Qt.RightButton },
                { tag: "middle button", button: Qt.MiddleButton },
            ];
        }

        function test_pressOutsideCloses(data) {
            menu.popup(40, 30);
            mousePress(scene, 380, 280, data.button);
            verify(!menu.visible);
            mouseRelease(scene, 380, 280, data.button);
        }

        function test_pressInsidePanelKeepsOpen() {
            menu.popup(40, 30);
            // The gap of the top margin, above the first row.
            mouseClick(panel, panel.width / 2, 2);
            verify(menu.visible);
            compare(normalSpy.count, 0);
        }

        function test_clicks_data() {
            return [
                { tag: "enabled row triggers", item: "normal", triggered: 1 },
                { tag: "disabled row stays silent", item: "disabled", triggered: 0 },
            ];
        }

        function test_clicks(data) {
            menu.popup(40, 30);
            const item = data.item === "normal" ? normalItem : disabledItem;
            const spy = data.item === "normal" ? normalSpy : disabledSpy;
            mouseClick(item, item.width / 2, item.height / 2);
            compare(spy.count, data.triggered);
        }
    }

    TestCase {
        name: "WinSlider"
        when: windowShown

        readonly property var control: findChild(slider, "winSliderControl")

        function init() {
            menu.close();
            slider.value = 48;
            movedSpy.clear();
        }

        function test_bindingChangeIsNotAMove() {
            slider.value = 90;
            compare(control.value, 90);
            compare(findChild(slider, "winSliderReadout").text, "90 px");
            compare(movedSpy.count, 0);
        }

        function test_dragReportsWithoutWriting() {
            mousePress(control, control.width / 2, control.height / 2);
            mouseMove(control, control.width - control.rightPadding, control.height / 2);
            mouseRelease(control, control.width - control.rightPadding, control.height / 2);
            verify(movedSpy.count > 0);
            fuzzyCompare(movedSpy.signalArguments[movedSpy.count - 1][0], 120, 2);
            // The owner decides: until it writes back, the bound value stands.
            compare(slider.value, 48);
            slider.value = 120;
            compare(control.value, 120);
        }

        function test_readoutRounds() {
            slider.value = 47.6;
            compare(findChild(slider, "winSliderReadout").text, "48 px");
        }
    }

    TestCase {
        name: "ToolbarCaptureMenu"
        when: windowShown

        function cleanup() {
            settingsManager.uiScale = 1.2;
        }

        function test_rowsShowTheirWholeText_data() {
            return [
                { tag: "90 %", scale: 0.9 },
                { tag: "100 %", scale: 1.0 },
                { tag: "150 %", scale: 1.5 },
            ];
        }

        function test_rowsShowTheirWholeText(data) {
            settingsManager.uiScale = data.scale;
            const holder = createTemporaryObject(captureMenuComponent, scene);
            const labels = [];
            for (let i = 0; i < holder.menu.rows.length; ++i) {
                const label = findChild(holder.menu.rows[i], "ctxItemLabel");
                const shortcut = findChild(holder.menu.rows[i], "ctxItemShortcut");
                labels.push(label.text);
                verify(!label.truncated, label.text + " is cut");
                verify(label.x + label.implicitWidth <= shortcut.x, label.text + " runs into its keys");
            }
            compare(labels, ["Rectangle snip", "Window snip", "Full screen snip"]);
        }
    }
}
