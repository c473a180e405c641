import QtQuick
import QtTest
import GlimmoraApp

Item {
    id: scene

    width: 800
    height: 600

    CommittedDrawingLayer {
        id: committed

        anchors.fill: parent
    }

    DrawingInputLayer {
        id: layer

        anchors.fill: parent
    }

    TestCase {
        id: testCase

        name: "DrawingInputLayer"
        when: windowShown

        readonly property var penPath: findChild(layer, "activePenPath")
        readonly property var highlighterPath: findChild(layer, "activeHighlighterPath")
        readonly property var arrowHeadPath: findChild(layer, "activeArrowHeadPath")
        readonly property var ripple: findChild(layer, "inputRipple")
        readonly property var menu: findChild(layer, "canvasCtxMenu")

        // Letters and numbers of a path text, so that paths compare with a tolerance.
        function tokens(path) {
            return path.split(/[ ,]+/).filter(t => t !== "").map(t => isNaN(Number(t)) ? t : Number(t));
        }

        function comparePath(actual, expected) {
            const a = testCase.tokens(actual);
            const e = testCase.tokens(expected);
            compare(a.length, e.length, actual + " against " + expected);
            for (let i = 0; i < a.length; ++i) {
                if (typeof e[i] === "number")
                    fuzzyCompare(a[i], e[i], 1e-6, "token " + i + " of " + actual);
                else
                    compare(a[i], e[i], "token " + i + " of " + actual);
            }
        }

        function points(list) {
            return list.map(p => Qt.point(p[0], p[1]));
        }

        function resetModel() {
            drawingModel.cancelStroke();
            drawingModel.undoRedoEnabled = false;
            drawingModel.clear();
            drawingModel.undoRedoEnabled = true;
        }

        function init() {
            settingsManager.brushSize = 4;
            settingsManager.strokeSmoothing = 2;
            settingsManager.undoRedoEnabled = true;
            settingsManager.clickRippleEnabled = true;
            settingsManager.hotkeys = {};
            appController.currentTool = "pen";
            appController.currentPenColor = "#FF5252";
            appController.calls = [];
            displayManager.displays = [{ id: "D1", enabled: true }, { id: "D2", enabled: true }];
            testCase.resetModel();
            testCase.menu.close();
            testCase.ripple.label = "";
            testCase.ripple.cx = -1;
        }

        function test_svgPath_data() {
            return [
                { tag: "one point gives nothing", tool: "pen", smoothing: 2, pts: [[5, 5]], expected: "" },
                { tag: "pen without smoothing is a polyline", tool: "pen", smoothing: 0,
                  pts: [[0, 0], [10, 10], [20, 0]], expected: "M 0,0 L 10,10 L 20,0" },
                { tag: "pen, three points: one quad and a closing line", tool: "pen", smoothing: 2,
                  pts: [[0, 0], [10, 10], [20, 0]], expected: "M 0,0 Q 10,10 15,5 L 20,0" },
                { tag: "pen, two points: a line at any level", tool: "pen", smoothing: 3,
                  pts: [[0, 0], [10, 10]], expected: "M 0,0 L 10,10" },
                { tag: "pen, four points filtered at level 2", tool: "pen", smoothing: 2,
                  pts: [[0, 0], [3, 3], [6, 0], [9, 9]],
                  expected: "M 0,0 Q 3,1 4.5,2.5 Q 6,4 7.5,6.5 L 9,9" },
                { tag: "highlighter previews curved like a pen", tool: "highlighter", smoothing: 1,
                  pts: [[0, 0], [10, 10], [20, 0]], expected: "M 0,0 Q 10,10 15,5 L 20,0" },
                { tag: "rectangle from first to last point", tool: "rectangle", smoothing: 2,
                  pts: [[50, 80], [0, 0], [10, 20]], expected: "M 50,80 L 10,80 L 10,20 L 50,20 Z" },
                { tag: "circle of four arcs from the leftmost point", tool: "circle", smoothing: 0,
                  pts: [[100, 50], [0, 0]],
                  expected: "M 0,25 C 0,11.1925 22.385,0 50,0 C 77.615,0 100,11.1925 100,25 "
                            + "C 100,38.8075 77.615,50 50,50 C 22.385,50 0,38.8075 0,25 Z" },
                { tag: "flat circle has no preview", tool: "circle", smoothing: 0,
                  pts: [[0, 10], [100, 11.5]], expected: "" },
                { tag: "arrow shaft stops at the head's base", tool: "arrow", smoothing: 2,
                  pts: [[0, 0], [40, 40], [100, 0]], expected: "M 0,0 L " + (100 - 16 * Math.cos(Math.PI / 6)) + ",0" },
            ];
        }

        function test_svgPath(data) {
            settingsManager.strokeSmoothing = data.smoothing;
            testCase.comparePath(layer.buildStrokeSvgPath(testCase.points(data.pts), data.tool), data.expected);
        }

        function test_filterMatchesPainter_data() {
            const rows = [];
            for (let level = 0; level <= 4; ++level) {
                for (let count = 1; count <= 7; count += 3)
                    rows.push({ tag: "level " + level + ", " + count + " points", level: level, count: count });
            }
            return rows;
        }

        function test_filterMatchesPainter(data) {
            const pts = [];
            for (let i = 0; i < data.count; ++i)
                pts.push(Qt.point((i * 37) % 11 + i * 3.5, (i * i * 13) % 17 - 4.25));
            const script = layer.filteredPoints(pts, data.level);
            const painter = drawingTest.smoothPoints(pts, data.level);
            compare(script.length, painter.length);
            for (let i = 0; i < script.length; ++i) {
                fuzzyCompare(script[i].x, painter[i].x, 1e-9);
                fuzzyCompare(script[i].y, painter[i].y, 1e-9);
            }
        }

        function test_arrowHeadMatchesPainter_data() {
            return [
                { tag: "to the right, thin", from: [10, 10], to: [200, 10], brush: 2 },
                { tag: "up and left, wide", from: [300, 300], to: [120, 40], brush: 9 },
                { tag: "no length points right", from: [50, 50], to: [50, 50], brush: 4 },
            ];
        }

        function test_arrowHeadMatchesPainter(data) {
            settingsManager.brushSize = data.brush;
            const from = Qt.point(data.from[0], data.from[1]);
            const to = Qt.point(data.to[0], data.to[1]);
            const length = Math.max(15, data.brush * 4);
            const expected = drawingTest.arrowHeadPoints(from, to, length);
            const numbers = testCase.tokens(layer.buildArrowHeadPath([from, Qt.point(1, 2), to]))
                .filter(t => typeof t === "number");
            compare(numbers.length, 18);
            for (let i = 0; i < 9; ++i) {
                fuzzyCompare(numbers[2 * i], expected[i].x, 1e-6, "x of point " + i);
                fuzzyCompare(numbers[2 * i + 1], expected[i].y, 1e-6, "y of point " + i);
            }
            compare(layer.buildArrowHeadPath([from]), "");
        }

        function test_dragCommitsOneStroke() {
            settingsManager.brushSize = 7;
            settingsManager.strokeSmoothing = 3;
            mousePress(layer, 100, 100, Qt.LeftButton);
            compare(testCase.penPath.path, "", "no preview before the pointer moves");
            mouseMove(layer, 120, 110, -1, Qt.LeftButton);
            mouseMove(layer, 140, 130, -1, Qt.LeftButton);
            verify(testCase.penPath.path !== "");
            compare(drawingModel.strokes.length, 0, "nothing committed while drawing");
            mouseRelease(layer, 140, 130, Qt.LeftButton);

            compare(drawingModel.strokes.length, 1);
            const stroke = drawingModel.strokes[0];
            compare(stroke.tool, "pen");
            compare(stroke.width, 7);
            compare(stroke.color.toUpperCase(), "#FF5252");
            compare(stroke.displayId, "D1");
            compare(stroke.smoothing, 3);
            compare(stroke.points.length, 3);
            compare(stroke.points[2].x, 140);
            compare(layer.activePoints.length, 0);
            compare(testCase.penPath.path, "");
            compare(testCase.ripple.label, "L");
        }

        function test_clickWithoutDragCommitsOnePoint() {
            mouseClick(layer, 30, 40, Qt.LeftButton);
            compare(drawingModel.strokes.length, 1);
            compare(drawingModel.strokes[0].points.length, 1);
            verify(drawingModel.canUndo);
            compare(testCase.penPath.path, "");
        }

        function test_rightPressDuringDragCommitsAndOpensMenu() {
            mousePress(layer, 100, 100, Qt.LeftButton);
            mouseMove(layer, 150, 120, -1, Qt.LeftButton);
            mousePress(layer, 150, 120, Qt.RightButton);
            compare(drawingModel.strokes.length, 1);
            verify(testCase.menu.visible);
            compare(testCase.menu.atX, 150);
            compare(testCase.ripple.label, "R");
            // The held left button draws no more, and its release commits nothing.
            mouseMove(layer, 200, 150, -1, Qt.LeftButton);
            mouseMove(layer, 220, 160, -1, Qt.LeftButton);
            compare(testCase.penPath.path, "");
            mouseRelease(layer, 220, 160, Qt.RightButton);
            mouseRelease(layer, 220, 160, Qt.LeftButton);
            compare(drawingModel.strokes.length, 1);
            compare(drawingModel.strokes[0].points.length, 2);
        }

        function test_middlePressOnlyRipples() {
            mousePress(layer, 60, 70, Qt.MiddleButton);
            compare(testCase.ripple.label, "M");
            compare(testCase.ripple.cx, 60);
            compare(String(testCase.ripple.ringColor).toUpperCase(), "#5EC27A");
            mouseMove(layer, 90, 90, -1, Qt.MiddleButton);
            mouseRelease(layer, 90, 90, Qt.MiddleButton);
            compare(drawingModel.strokes.length, 0);
            verify(!testCase.menu.visible);
        }

        function test_rippleCanBeSwitchedOff() {
            settingsManager.clickRippleEnabled = false;
            mouseClick(layer, 60, 70, Qt.LeftButton);
            compare(testCase.ripple.cx, -1);
            compare(drawingModel.strokes.length, 1);
        }

        function test_disablingTheDisplayDropsTheStroke() {
            mousePress(layer, 100, 100, Qt.LeftButton);
            mouseMove(layer, 150, 150, -1, Qt.LeftButton);
            displayManager.displays = [{ id: "D1", enabled: false }];
            compare(layer.activePoints.length, 0);
            compare(testCase.penPath.path, "");
            mouseRelease(layer, 150, 150, Qt.LeftButton);
            compare(drawingModel.strokes.length, 0);
            verify(!drawingModel.canUndo);
            // The area is off now: a press draws nothing.
            mouseClick(layer, 40, 40, Qt.LeftButton);
            compare(drawingModel.strokes.length, 0);
        }

        function test_spotlightTakesNoStrokes() {
            appController.currentTool = "spotlight";
            mouseClick(layer, 40, 40, Qt.LeftButton);
            compare(drawingModel.strokes.length, 0);
        }

        function test_toolChangeMidStroke() {
            mousePress(layer, 100, 100, Qt.LeftButton);
            mouseMove(layer, 120, 100, -1, Qt.LeftButton);
            appController.currentTool = "highlighter";
            mouseMove(layer, 140, 100, -1, Qt.LeftButton);
            verify(testCase.highlighterPath.path !== "", "the preview follows the current tool");
            mouseRelease(layer, 140, 100, Qt.LeftButton);
            compare(drawingModel.strokes[0].tool, "pen", "the stroke keeps the tool it began with");
            compare(testCase.highlighterPath.path, "");
        }

        function test_previewByTool_data() {
            return [
                { tag: "arrow feeds shaft and head", tool: "arrow", pen: true, highlighter: false, head: true },
                { tag: "highlighter feeds its own shape", tool: "highlighter", pen: false, highlighter: true, head: false },
                { tag: "eraser feeds only the canvas", tool: "eraser", pen: false, highlighter: false, head: false },
                { tag: "rectangle feeds the pen shape", tool: "rectangle", pen: true, highlighter: false, head: false },
            ];
        }

        function test_previewByTool(data) {
            appController.currentTool = data.tool;
            mousePress(layer, 100, 100, Qt.LeftButton);
            mouseMove(layer, 160, 140, -1, Qt.LeftButton);
            mouseMove(layer, 220, 180, -1, Qt.LeftButton);
            compare(testCase.penPath.path !== "", data.pen);
            compare(testCase.highlighterPath.path !== "", data.highlighter);
            compare(testCase.arrowHeadPath.path !== "", data.head);
            mouseRelease(layer, 220, 180, Qt.LeftButton);
            compare(drawingModel.strokes[0].tool, data.tool);
        }

        function openMenu() {
            mouseClick(layer, 300, 300, Qt.RightButton);
            verify(testCase.menu.visible);
            wait(150); // the panel scales in
        }

        function test_menuCommands_data() {
            return [
                { tag: "clear all", item: "menuClear", strokes: 0, calls: [] },
                { tag: "undo", item: "menuUndo", strokes: 1, calls: [] },
                { tag: "cursor mode", item: "menuCursor", strokes: 2, calls: ["setTool:cursor"] },
                { tag: "pause overlay", item: "menuPause", strokes: 2, calls: ["toggleOverlay"] },
                { tag: "settings", item: "menuSettings", strokes: 2, calls: ["showSettings"] },
            ];
        }

        function test_menuCommands(data) {
            mouseClick(layer, 10, 10, Qt.LeftButton);
            mouseClick(layer, 20, 20, Qt.LeftButton);
            testCase.openMenu();
            mouseClick(findChild(layer, data.item));
            compare(drawingModel.strokes.length, data.strokes);
            compare(appController.calls, data.calls);
            verify(!testCase.menu.visible, "every command closes the menu");
        }

        function test_undoRedoItemsFollowHistory() {
            const undo = findChild(layer, "menuUndo");
            const redo = findChild(layer, "menuRedo");
            verify(undo.disabled && redo.disabled);
            mouseClick(layer, 10, 10, Qt.LeftButton);
            verify(!undo.disabled && redo.disabled);
            drawingModel.undoLastStroke();
            verify(undo.disabled && !redo.disabled);
            settingsManager.undoRedoEnabled = false;
            verify(undo.disabled && redo.disabled, "the setting alone disables both");
            // A disabled row does nothing and leaves the menu open.
            settingsManager.undoRedoEnabled = true;
            testCase.openMenu();
            mouseClick(undo);
            verify(testCase.menu.visible);
            mouseClick(redo);
            compare(drawingModel.strokes.length, 1);
        }

        function test_shortcutLabels() {
            const undo = findChild(layer, "menuUndo");
            settingsManager.hotkeys = { undo: "Ctrl+Win+Z", clear: "Ctrl+Shift+C" };
            settingsManager.hotkeysRevision += 1;
            compare(undo.shortcut, Qt.platform.os === "linux" ? "Ctrl+Super+Z" : "Ctrl+Win+Z");
            compare(findChild(layer, "menuClear").shortcut, "Ctrl+Shift+C");
            settingsManager.hotkeys = { undo: "Alt+U" };
            settingsManager.hotkeysRevision += 1;
            compare(undo.shortcut, "Alt+U");
        }

        function test_committedLayerBindings() {
            const renderer = findChild(committed, "committedRenderer");
            verify(renderer.drawingModel === drawingModel);
            compare(renderer.displayId, "D1");
            settingsManager.mirrorAnnotationsAcrossDisplays = true;
            verify(renderer.mirrorAnnotations);
            settingsManager.mirrorAnnotationsAcrossDisplays = false;
            appController.currentPenColor = "#00FF00";
            compare(String(renderer.defaultColor).toUpperCase(), "#00FF00");
            settingsManager.brushSize = 11;
            compare(renderer.defaultWidth, 11);
            settingsManager.strokeSmoothing = 0;
            compare(renderer.defaultSmoothing, 0);
        }
    }
}
