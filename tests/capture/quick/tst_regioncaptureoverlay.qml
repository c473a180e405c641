import QtQuick
import QtTest
import GlimmoraApp

Item {
    id: root

    width: 800
    height: 600

    Component {
        id: overlayComponent

        RegionCaptureOverlay {}
    }

    SignalSpy {
        id: committedSpy

        signalName: "committed"
    }

    SignalSpy {
        id: cancelledSpy

        signalName: "cancelled"
    }

    TestCase {
        id: test

        name: "RegionCaptureOverlay"
        when: windowShown

        // With `hide`, either signal hides the overlay, as the HUD does; without,
        // what it draws after the release stays inspectable.
        function makeOverlay(hide: bool): RegionCaptureOverlay {
            const overlay = test.createTemporaryObject(overlayComponent, root) as RegionCaptureOverlay;
            committedSpy.clear();
            cancelledSpy.clear();
            committedSpy.target = overlay;
            cancelledSpy.target = overlay;
            if (hide) {
                overlay.committed.connect(() => overlay.visible = false);
                overlay.cancelled.connect(() => overlay.visible = false);
            }
            overlay.forceActiveFocus();
            return overlay;
        }

        function committedRect(): list<real> {
            const args = committedSpy.signalArguments[0];
            return [args[0], args[1], args[2], args[3]];
        }

        function drag(overlay: Item, from: point, to: point) {
            test.mousePress(overlay, from.x, from.y, Qt.LeftButton);
            test.mouseMove(overlay, (from.x + to.x) / 2, (from.y + to.y) / 2, -1, Qt.LeftButton);
            test.mouseMove(overlay, to.x, to.y, -1, Qt.LeftButton);
            test.mouseRelease(overlay, to.x, to.y, Qt.LeftButton);
        }

        function test_directions_data() {
            return [
                { tag: "down and right", from: Qt.point(100, 80), to: Qt.point(300, 230) },
                { tag: "up and left", from: Qt.point(300, 230), to: Qt.point(100, 80) },
                { tag: "up and right", from: Qt.point(100, 230), to: Qt.point(300, 80) },
                { tag: "down and left", from: Qt.point(300, 80), to: Qt.point(100, 230) }
            ];
        }

        function test_directions(data) {
            const overlay = test.makeOverlay(true);
            test.drag(overlay, data.from, data.to);
            test.compare(committedSpy.count, 1);
            test.compare(cancelledSpy.count, 0);
            test.compare(test.committedRect(), [100, 80, 200, 150]);
            test.verify(!overlay.visible);
        }

        function test_threshold_data() {
            return [
                { tag: "click without a drag", w: 0, h: 0, commits: false },
                { tag: "4 pixels wide", w: 4, h: 60, commits: false },
                { tag: "4 pixels tall", w: 60, h: 4, commits: false },
                { tag: "5 by 5 commits", w: 5, h: 5, commits: true }
            ];
        }

        function test_threshold(data) {
            const overlay = test.makeOverlay(false);
            test.drag(overlay, Qt.point(200, 200), Qt.point(200 + data.w, 200 + data.h));
            test.compare(committedSpy.count, data.commits ? 1 : 0);
            test.compare(cancelledSpy.count, data.commits ? 0 : 1);
            test.compare(overlay.hasSelection, data.commits);
            test.compare(test.findChild(overlay, "selectionFrame").visible, data.commits);
            // Too small for the size label, committed or not.
            test.verify(!test.findChild(overlay, "sizeLabel").visible);
        }

        function test_sizeLabel() {
            const overlay = test.makeOverlay(false);
            test.drag(overlay, Qt.point(50, 60), Qt.point(250.4, 179.6));
            const label = test.findChild(overlay, "sizeLabel");
            test.verify(label.visible);
            test.compare(label.children[0].text, "200 × 120");
        }

        // Not hidden here, so the release really reaches the item.
        function test_escape() {
            const overlay = test.makeOverlay(false);
            test.keyClick(Qt.Key_Escape); // before any press
            test.compare(cancelledSpy.count, 1);
            cancelledSpy.clear();
            test.mousePress(overlay, 100, 100, Qt.LeftButton);
            test.mouseMove(overlay, 300, 300, -1, Qt.LeftButton);
            test.keyClick(Qt.Key_Escape);
            test.compare(cancelledSpy.count, 1);
            test.verify(!overlay.selecting);
            test.mouseRelease(overlay, 300, 300, Qt.LeftButton);
            test.compare(committedSpy.count, 0);
            test.compare(cancelledSpy.count, 1);
        }

        function test_dragBeyondTheItem() {
            const overlay = test.makeOverlay(true);
            test.drag(overlay, Qt.point(700, 500), Qt.point(900, 650));
            test.compare(test.committedRect(), [700, 500, 200, 150]);
        }

        function test_dimming() {
            const overlay = test.makeOverlay(false);
            const bottom = test.findChild(overlay, "dimBottom");
            // Before a selection one band dims everything, and the hint shows.
            test.compare([bottom.y, bottom.width, bottom.height], [0, 800, 600]);
            test.verify(test.findChild(overlay, "hint").visible);

            test.mousePress(overlay, 100, 80, Qt.LeftButton);
            test.mouseMove(overlay, 300, 230, -1, Qt.LeftButton);
            test.verify(!test.findChild(overlay, "hint").visible);
            const bands = {
                "dimTop": [0, 0, 800, 80],
                "dimBottom": [0, 230, 800, 370],
                "dimLeft": [0, 80, 100, 150],
                "dimRight": [300, 80, 500, 150]
            };
            for (const name in bands) {
                const band = test.findChild(overlay, name);
                test.compare([band.x, band.y, band.width, band.height], bands[name], name);
            }
            test.mouseRelease(overlay, 300, 230, Qt.LeftButton);
        }

        function test_newPressReplacesTheOldRectangle() {
            const overlay = test.makeOverlay(true);
            test.drag(overlay, Qt.point(100, 100), Qt.point(200, 200));
            overlay.visible = true;
            test.mousePress(overlay, 400, 300, Qt.LeftButton);
            test.compare([overlay.selX, overlay.selY, overlay.selW, overlay.selH], [400, 300, 0, 0]);
            test.verify(overlay.selecting);
            test.mouseRelease(overlay, 400, 300, Qt.LeftButton);
            test.compare(cancelledSpy.count, 1);
        }
    }
}
