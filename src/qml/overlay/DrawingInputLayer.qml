import QtQuick
import QtQuick.Shapes
import GlimmoraApp

// Takes the pointer while a drawing tool is active: feeds the stroke model and
// previews the stroke in progress until it is committed, when the committed
// layer below takes over.
Item {
    id: root

    readonly property string displayId: displayManager.displayIdForScreen(root.Screen.name)
    readonly property bool displayEnabled: {
        if (root.displayId === "")
            return true;
        const rows = displayManager.displays;
        for (let i = 0; i < rows.length; ++i) {
            if (rows[i].id === root.displayId)
                return rows[i].enabled;
        }
        return true;
    }
    // Raw samples of the stroke in progress; grown in place, so nothing binds to it.
    property var activePoints: []
    // Whether the preview layer is needed; the multisampled layer costs a
    // full-window buffer, so it exists only while a stroke is in progress.
    property bool stroking: false
    readonly property int hotkeysRevision: settingsManager.hotkeysRevision
    readonly property real headLength: Math.max(15, settingsManager.brushSize * 4)
    readonly property color penColor: appController.currentPenColor

    function shortcutLabel(actionId: string): string {
        root.hotkeysRevision; // re-read when hotkeys change
        const sequence = settingsManager.hotkeyForAction(actionId);
        if (Qt.platform.os !== "linux")
            return sequence;
        return sequence.split("+").map(token => token === "Win" ? "Super" : token).join("+");
    }

    // The same moving average as the committed painter, so that a stroke looks
    // the same before and after its commit.
    function filteredPoints(points: var, smoothing: int): var {
        const n = points.length;
        if (smoothing < 2 || n < 4)
            return points;
        const radius = smoothing >= 3 ? 2 : 1;
        const out = [points[0]];
        for (let i = 1; i < n - 1; ++i) {
            const from = Math.max(0, i - radius);
            const to = Math.min(n - 1, i + radius);
            let sumX = 0;
            let sumY = 0;
            for (let j = from; j <= to; ++j) {
                sumX += points[j].x;
                sumY += points[j].y;
            }
            out.push(Qt.point(sumX / (to - from + 1), sumY / (to - from + 1)));
        }
        out.push(points[n - 1]);
        return out;
    }

    function xy(p: point): string {
        return p.x + "," + p.y;
    }

    function arrowWings(from: point, to: point, length: real): var {
        const angle = Math.atan2(to.y - from.y, to.x - from.x);
        const spread = Math.PI / 6;
        return [Qt.point(to.x - length * Math.cos(angle - spread), to.y - length * Math.sin(angle - spread)),
                Qt.point(to.x - length * Math.cos(angle + spread), to.y - length * Math.sin(angle + spread))];
    }

    function buildStrokeSvgPath(pts: var, tool: string): string {
        if (pts.length < 2)
            return "";
        const p = root.filteredPoints(pts, settingsManager.strokeSmoothing);
        const first = p[0];
        const last = p[p.length - 1];
        if (tool === "rectangle") {
            return "M " + first.x + "," + first.y + " L " + last.x + "," + first.y
                    + " L " + last.x + "," + last.y + " L " + first.x + "," + last.y + " Z";
        }
        if (tool === "circle") {
            const cx = (first.x + last.x) / 2;
            const cy = (first.y + last.y) / 2;
            const rx = Math.abs(last.x - first.x) / 2;
            const ry = Math.abs(last.y - first.y) / 2;
            if (rx < 1 || ry < 1)
                return "";
            const kx = rx * 0.5523;
            const ky = ry * 0.5523;
            return "M " + (cx - rx) + "," + cy
                    + " C " + (cx - rx) + "," + (cy - ky) + " " + (cx - kx) + "," + (cy - ry) + " " + cx + "," + (cy - ry)
                    + " C " + (cx + kx) + "," + (cy - ry) + " " + (cx + rx) + "," + (cy - ky) + " " + (cx + rx) + "," + cy
                    + " C " + (cx + rx) + "," + (cy + ky) + " " + (cx + kx) + "," + (cy + ry) + " " + cx + "," + (cy + ry)
                    + " C " + (cx - kx) + "," + (cy + ry) + " " + (cx - rx) + "," + (cy + ky) + " " + (cx - rx) + "," + cy
                    + " Z";
        }
        if (tool === "arrow") {
            const wings = root.arrowWings(first, last, root.headLength);
            return "M " + root.xy(first) + " L " + root.xy(Qt.point((wings[0].x + wings[1].x) / 2,
                                                                   (wings[0].y + wings[1].y) / 2));
        }
        let path = "M " + root.xy(first);
        if (settingsManager.strokeSmoothing <= 0 || p.length < 3) {
            for (let i = 1; i < p.length; ++i)
                path += " L " + root.xy(p[i]);
            return path;
        }
        for (let i = 1; i < p.length - 1; ++i) {
            const mid = Qt.point((p[i].x + p[i + 1].x) / 2, (p[i].y + p[i + 1].y) / 2);
            path += " Q " + root.xy(p[i]) + " " + root.xy(mid);
        }
        return path + " L " + root.xy(last);
    }

    function buildEraserPath(pts: var): string {
        if (pts.length < 2)
            return "";
        const p = root.filteredPoints(pts, settingsManager.strokeSmoothing);
        return "M " + p.map(point => root.xy(point)).join(" L ");
    }

    function buildArrowHeadPath(pts: var): string {
        if (pts.length < 2)
            return "";
        const tip = pts[pts.length - 1];
        const wings = root.arrowWings(pts[0], tip, root.headLength);
        const r = 0.25 * root.headLength;
        const unit = (u, v) => {
            const dx = v.x - u.x;
            const dy = v.y - u.y;
            const length = Math.sqrt(dx * dx + dy * dy);
            return length > 1e-6 ? Qt.point(dx / length, dy / length) : Qt.point(0, 0);
        };
        const towards = (u, v) => {
            const d = unit(u, v);
            return Qt.point(u.x + r * d.x, u.y + r * d.y);
        };
        const a = wings[0];
        const b = tip;
        const c = wings[1];
        return "M " + root.xy(towards(a, c)) + " Q " + root.xy(a) + " " + root.xy(towards(a, b))
                + " L " + root.xy(towards(b, a)) + " Q " + root.xy(b) + " " + root.xy(towards(b, c))
                + " L " + root.xy(towards(c, b)) + " Q " + root.xy(c) + " " + root.xy(towards(c, a))
                + " Z";
    }

    function updateActiveStroke() {
        const tool = appController.currentTool;
        if (tool === "eraser") {
            activeEraserPath.path = root.buildEraserPath(root.activePoints);
        } else if (tool === "highlighter") {
            activeHighlighterPath.path = root.buildStrokeSvgPath(root.activePoints, tool);
        } else {
            activePenPath.path = root.buildStrokeSvgPath(root.activePoints, tool);
            if (tool === "arrow")
                activeArrowHeadPath.path = root.buildArrowHeadPath(root.activePoints);
        }
    }

    function clearActiveStroke() {
        activePenPath.path = "";
        activeHighlighterPath.path = "";
        activeArrowHeadPath.path = "";
        activeEraserPath.path = "";
        root.stroking = false;
    }

    function rippleColor(button: int): string {
        if (button === Qt.RightButton)
            return settingsManager.rightClickColor;
        if (button === Qt.MiddleButton)
            return settingsManager.middleClickColor;
        return settingsManager.leftClickColor;
    }

    function rippleLabel(button: int): string {
        if (button === Qt.RightButton)
            return "R";
        if (button === Qt.MiddleButton)
            return "M";
        return "L";
    }

    function commitActiveStroke() {
        drawingModel.endStroke();
        root.activePoints = [];
        root.clearActiveStroke();
    }

    onDisplayEnabledChanged: {
        // The only way a stroke is dropped rather than committed.
        if (!root.displayEnabled && root.activePoints.length > 0) {
            drawingModel.cancelStroke();
            root.activePoints = [];
            root.clearActiveStroke();
        }
    }

    Item {
        id: preview

        objectName: "strokePreview"
        anchors.fill: parent
        // The default shape renderer does not antialias; a multisampled layer
        // does. A layer needs a real size, which anchors.fill gives it.
        layer.enabled: root.stroking
        layer.samples: 4

        Shape {
            anchors.fill: parent

            ShapePath {
                strokeColor: root.penColor
                strokeWidth: settingsManager.brushSize
                fillColor: "transparent"
                capStyle: ShapePath.RoundCap
                joinStyle: ShapePath.RoundJoin

                PathSvg {
                    id: activePenPath

                    objectName: "activePenPath"
                }
            }
        }

        Shape {
            anchors.fill: parent

            ShapePath {
                strokeColor: Qt.rgba(root.penColor.r, root.penColor.g, root.penColor.b, 0.38)
                strokeWidth: Math.max(settingsManager.brushSize * 5, 14)
                fillColor: "transparent"
                capStyle: ShapePath.SquareCap
                joinStyle: ShapePath.MiterJoin

                PathSvg {
                    id: activeHighlighterPath

                    objectName: "activeHighlighterPath"
                }
            }
        }

        // Only marks where the eraser went, in white at 0.18; the committed
        // layer changes on release. A path, not a canvas: a canvas keeps a
        // window-sized image even while it shows nothing.
        Shape {
            anchors.fill: parent

            ShapePath {
                strokeColor: "#2EFFFFFF"
                strokeWidth: settingsManager.brushSize
                fillColor: "transparent"
                capStyle: ShapePath.RoundCap
                joinStyle: ShapePath.RoundJoin

                PathSvg {
                    id: activeEraserPath

                    objectName: "activeEraserPath"
                }
            }
        }

        Shape {
            anchors.fill: parent

            ShapePath {
                strokeColor: "transparent"
                fillColor: root.penColor

                PathSvg {
                    id: activeArrowHeadPath

                    objectName: "activeArrowHeadPath"
                }
            }
        }
    }

    ClickRipple {
        id: ripple

        objectName: "inputRipple"
    }

    CtxMenu {
        id: canvasCtxMenu

        objectName: "canvasCtxMenu"

        CtxItem {
            objectName: "menuUndo"
            label: "Undo"
            shortcut: root.shortcutLabel("undo")
            disabled: !settingsManager.undoRedoEnabled || !drawingModel.canUndo
            onTriggered: {
                drawingModel.undoLastStroke();
                canvasCtxMenu.close();
            }
        }
        CtxItem {
            objectName: "menuRedo"
            label: "Redo"
            shortcut: root.shortcutLabel("redo")
            disabled: !settingsManager.undoRedoEnabled || !drawingModel.canRedo
            onTriggered: {
                drawingModel.redoLastStroke();
                canvasCtxMenu.close();
            }
        }
        CtxItem {
            objectName: "menuClear"
            label: "Clear All"
            shortcut: root.shortcutLabel("clear")
            danger: true
            onTriggered: {
                drawingModel.clear();
                canvasCtxMenu.close();
            }
        }
        // 12 px narrower than the menu and centred on it; the rows start px(6) in.
        Rectangle {
            x: 6 - AppTheme.px(6)
            width: AppTheme.px(220) - 12
            height: 1
            color: "#14FFFFFF"
        }
        CtxItem {
            objectName: "menuCursor"
            label: "Cursor Mode"
            shortcut: root.shortcutLabel("exitToCursor")
            onTriggered: {
                appController.setTool("cursor");
                canvasCtxMenu.close();
            }
        }
        CtxItem {
            objectName: "menuPause"
            label: "Pause Overlay"
            shortcut: root.shortcutLabel("toggleOverlay")
            onTriggered: {
                appController.toggleOverlay();
                canvasCtxMenu.close();
            }
        }
        CtxItem {
            objectName: "menuSettings"
            label: "Settings..."
            shortcut: root.shortcutLabel("openSettings")
            onTriggered: {
                appController.showSettings();
                canvasCtxMenu.close();
            }
        }
    }

    MouseArea {
        id: mouseArea

        objectName: "drawingMouseArea"
        anchors.fill: parent
        enabled: root.displayEnabled && appController.currentTool !== "spotlight"
        acceptedButtons: Qt.LeftButton | Qt.RightButton | Qt.MiddleButton
        cursorShape: Qt.CrossCursor

        onPressed: mouse => {
            if (settingsManager.clickRippleEnabled)
                ripple.trigger(mouse.x, mouse.y, root.rippleColor(mouse.button), root.rippleLabel(mouse.button));
            if (mouse.button === Qt.RightButton) {
                // A right press during a drag commits the stroke, then opens the menu.
                if (root.activePoints.length > 0)
                    root.commitActiveStroke();
                canvasCtxMenu.popup(mouse.x, mouse.y);
            } else if (mouse.button === Qt.LeftButton) {
                const point = Qt.point(mouse.x, mouse.y);
                root.activePoints = [point];
                root.stroking = true;
                drawingModel.beginStroke(point, appController.currentTool, settingsManager.brushSize,
                                         appController.currentPenColor, root.displayId,
                                         settingsManager.strokeSmoothing);
            }
        }
        onPositionChanged: mouse => {
            // After a right press has committed the stroke, the held left
            // button no longer draws.
            if (!mouseArea.pressed || !(mouse.buttons & Qt.LeftButton) || root.activePoints.length === 0)
                return;
            const point = Qt.point(mouse.x, mouse.y);
            root.activePoints.push(point);
            drawingModel.appendPoint(point);
            root.updateActiveStroke();
        }
        onReleased: mouse => {
            if (mouse.button === Qt.LeftButton)
                root.commitActiveStroke();
        }
    }
}
