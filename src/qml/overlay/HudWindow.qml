import QtQuick
import GlimmoraApp

// The full-screen window on the control display that holds every control. It
// passes the mouse through except over the rectangles it publishes to the
// controller, so every control's place goes out in global coordinates. The
// chrome hides itself until the pointer touches the top strip.
Window {
    id: root

    readonly property bool uiVisible: !appController.captureInProgress && !appController.regionSelecting
    property bool shortcutPinned: true
    property bool shortcutPeeking: false
    property bool controlsRevealByHover: false
    readonly property int controlsRevealTriggerHeight: AppTheme.px(28)
    readonly property int controlsSlideDuration: 420
    readonly property int controlsFadeDuration: 260
    readonly property bool controlsRevealed: settingsManager.overlayControlsAlwaysVisible || root.controlsRevealByHover
                                             || appController.settingsVisible || appController.toolbarDragging
                                             || appController.toolbarMoving
    readonly property bool controlsChromeVisible: root.uiVisible && root.controlsRevealed
    // The HUD is itself the native window, so its position is the global origin.
    readonly property real windowGlobalX: root.x
    readonly property real windowGlobalY: root.y
    // The look of the settings panel is the platform's; a test may show another.
    property string settingsLook: AppTheme.isMacOS ? "mac" : AppTheme.isLinux ? "linux" : "windows"

    function defaultToolbarX(): real {
        return Math.round((root.width - toolbar.width) / 2);
    }

    function defaultToolbarY(): real {
        return AppTheme.px(14);
    }

    function clampToolbar() {
        if (toolbar.width <= 0 || toolbar.height <= 0)
            return;
        const margin = AppTheme.px(12);
        toolbar.x = root.clamp(toolbar.x, margin, Math.max(margin, root.width - toolbar.width - margin));
        toolbar.y = root.clamp(toolbar.y, margin, Math.max(margin, root.height - toolbar.height - margin));
    }

    // The toolbar has no free position: it returns to the top centre of
    // whatever display is the control display.
    function resetControlLayout() {
        toolbar.x = Qt.binding(root.defaultToolbarX);
        toolbar.y = Qt.binding(root.defaultToolbarY);
        root.clampToolbar();
        if (appController.settingsVisible)
            root.centreSettingsPanel();
        root.syncInteractiveRectsLater();
    }

    function activeSettingsPanel(): Item {
        if (root.settingsLook === "mac")
            return settingsMac;
        return root.settingsLook === "linux" ? settingsLinux : settingsWindows;
    }

    // On whole pixels, so that the panel's text stays sharp.
    function centreSettingsPanel() {
        const panel = root.activeSettingsPanel();
        panel.x = Math.round((root.width - panel.width) / 2);
        panel.y = Math.round((root.height - panel.height) / 2);
    }

    function clamp(value: real, low: real, high: real): real {
        return Math.max(low, Math.min(high, value));
    }

    // Edges count as inside; an empty rectangle holds nothing.
    function pointInRect(pt: point, area: rect): bool {
        return area.width > 0 && area.height > 0 && pt.x >= area.x && pt.x <= area.x + area.width
               && pt.y >= area.y && pt.y <= area.y + area.height;
    }

    function cursorInControls(): bool {
        const p = appController.cursorPos();
        return [appController.controlsRevealRect, appController.toolbarRect, appController.statusBarRect,
                appController.helpButtonRect, appController.shortcutCardRect, appController.toastRect]
               .some(area => root.pointInRect(p, area));
    }

    // The reveal strip does not count: a click there still hides the chrome.
    function pointInControlChrome(pt: point): bool {
        return [appController.toolbarRect, appController.statusBarRect, appController.helpButtonRect,
                appController.shortcutCardRect, appController.toastRect, appController.modalRect]
               .some(area => root.pointInRect(pt, area));
    }

    function hideControls() {
        root.controlsRevealByHover = false;
        root.syncInteractiveRectsLater();
    }

    function revealControls() {
        root.controlsRevealByHover = true;
        controlsHideTimer.restart();
        root.syncInteractiveRectsLater();
    }

    function scheduleControlsHide() {
        controlsHideTimer.restart();
    }

    function globalRect(area: rect): rect {
        return Qt.rect(root.windowGlobalX + area.x, root.windowGlobalY + area.y, area.width, area.height);
    }

    // What a chrome element publishes: its rectangle in global coordinates while
    // it shows, zero while it is hidden or slid away.
    function chromeRect(item: Item, area: rect): rect {
        const showing = item !== null && item.visible && root.controlsChromeVisible && area.width > 0
                        && area.height > 0;
        return showing ? root.globalRect(area) : Qt.rect(0, 0, 0, 0);
    }

    function syncControlsRevealRect() {
        appController.controlsRevealRect = root.uiVisible
                ? Qt.rect(root.windowGlobalX, root.windowGlobalY, root.width, root.controlsRevealTriggerHeight)
                : Qt.rect(0, 0, 0, 0);
    }

    // Coalesced: many changes in one event-loop turn publish once.
    function syncInteractiveRectsLater() {
        Qt.callLater(root.syncInteractiveRects); // qmllint disable type
    }

    function syncInteractiveRects() {
        root.syncControlsRevealRect();
        appController.toolbarRect = root.chromeRect(toolbar, toolbar.toolbarRect);
        // The toast is not part of the chrome: it stays reachable while it shows.
        appController.toastRect = toolbar.toastRect.width > 0 ? root.globalRect(toolbar.toastRect)
                                                              : Qt.rect(0, 0, 0, 0);
        appController.statusBarRect = root.chromeRect(statusBadge, Qt.rect(statusBadge.x, statusBadge.y,
                                                                           statusBadge.width, statusBadge.height));
        appController.helpButtonRect = root.chromeRect(helpBtn, Qt.rect(helpBtn.x, helpBtn.y, helpBtn.width,
                                                                        helpBtn.height));
        appController.shortcutCardRect = root.chromeRect(shortcutCard, shortcutCard.cardRect);
    }

    // Keystroke card: left or right with a margin, or centred, above the bottom edge.
    function keystrokeCardX(cardWidth: real): real {
        switch (settingsManager.keystrokePosition) {
        case 0:
            return AppTheme.px(40);
        case 2:
            return root.width - cardWidth - AppTheme.px(40);
        default:
            return Math.round((root.width - cardWidth) / 2);
        }
    }

    function keystrokeCardY(cardHeight: real): real {
        return root.height - cardHeight - AppTheme.px(120);
    }

    flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.Tool
    color: "transparent"

    onXChanged: root.syncInteractiveRectsLater()
    onYChanged: root.syncInteractiveRectsLater()
    onWidthChanged: root.syncInteractiveRectsLater()
    onHeightChanged: root.syncInteractiveRectsLater()
    onUiVisibleChanged: root.syncInteractiveRectsLater()
    onControlsChromeVisibleChanged: root.syncInteractiveRectsLater()
    Component.onCompleted: {
        root.centreSettingsPanel();
        root.syncInteractiveRectsLater();
    }

    // X11 cannot keep a window out of a screen grab, so for a still capture
    // the whole HUD steps aside at once: key caps, toast, lens and cards too.
    Binding {
        target: root.contentItem
        property: "visible"
        value: !appController.captureInProgress
    }

    Timer {
        id: controlsHideTimer

        interval: 520
        onTriggered: {
            if (root.controlsRevealByHover && root.cursorInControls())
                controlsHideTimer.restart();
            else
                root.hideControls();
        }
    }

    Connections {
        target: appController

        function onMouseClicked(pos: point, buttons: int) {
            if (root.controlsRevealByHover && !root.pointInControlChrome(pos))
                root.hideControls();
        }

        function onCaptureStatusChanged() {
            captureFeedback.show(appController.captureStatus, appController.captureLastPath);
        }

        // The quit hotkey may arrive while the HUD passes the mouse through and
        // has no focus: the open dialog is modal, which lends the HUD the
        // keyboard for Esc and Return until it closes. The window already
        // stands above the desktop's, and below a locker.
        function onQuitRequested() {
            quitDialog.visible = true;
        }

        function onRegionCaptureRequested() {
            regionOverlay.visible = true;
            // Overlay windows refuse focus; Esc must reach the selection.
            root.requestActivate();
            regionOverlay.forceActiveFocus();
        }

        function onToolbarMovingChanged() {
            if (!appController.toolbarMoving)
                postMoveLayoutResetTimer.restart();
        }
    }

    Connections {
        target: displayManager

        function onControlDisplayIdChanged() {
            layoutResetTimer.restart();
            postMoveLayoutResetTimer.restart();
        }

        function onDisplaysChanged() {
            layoutResetTimer.restart();
            postMoveLayoutResetTimer.restart();
        }
    }

    Timer {
        id: layoutResetTimer
        interval: 20
        onTriggered: root.resetControlLayout()
    }

    Timer {
        id: postMoveLayoutResetTimer
        interval: 90
        onTriggered: root.resetControlLayout()
    }

    FloatingToolbar {
        id: toolbar

        objectName: "toolbar"
        x: root.defaultToolbarX()
        y: root.defaultToolbarY()
        // Gone once it has faded out, so that nothing in it animates unseen.
        visible: appController.toolbarVisible && root.uiVisible && toolbar.opacity > 0
        opacity: root.controlsChromeVisible ? 1 : 0
        transform: Translate {
            y: root.controlsChromeVisible ? 0 : -toolbar.height - root.defaultToolbarY() - AppTheme.px(10)

            Behavior on y {
                NumberAnimation { duration: root.controlsSlideDuration; easing.type: Easing.OutCubic }
            }
        }

        Behavior on opacity {
            NumberAnimation { duration: root.controlsFadeDuration; easing.type: Easing.OutCubic }
        }

        onXChanged: root.syncInteractiveRectsLater()
        onYChanged: root.syncInteractiveRectsLater()
        onWidthChanged: root.syncInteractiveRectsLater()
        onHeightChanged: root.syncInteractiveRectsLater()
        onVisibleChanged: root.syncInteractiveRectsLater()
        onToolbarRectChanged: root.syncInteractiveRectsLater()
        onToastRectChanged: root.syncInteractiveRectsLater()
        onDragMoveTo: function (toolbarWindowX, toolbarWindowY, globalCursorX, globalCursorY) {
            toolbar.x = toolbarWindowX;
            toolbar.y = toolbarWindowY;
            appController.updateToolbarDrag(Qt.point(globalCursorX, globalCursorY));
        }
        onDragFinished: root.resetControlLayout()
        onQuitRequested: {
            if (!settingsManager.confirmQuit)
                Qt.quit();
            else
                appController.requestQuit();
        }
    }

    // The lens grabs the screen without this window, so it never shows itself.
    MagnifierLens {
        // Not over a dialog: the lens would show the screen undimmed through it.
        active: (AppTheme.isWindows || AppTheme.isLinux) && appController.magnifierEnabled && root.uiVisible
                && !appController.regionSelecting && !quitDialog.visible && !onboarding.visible
        windowGlobalX: root.windowGlobalX
        windowGlobalY: root.windowGlobalY
        zoomFactor: settingsManager.magnifierZoomFactor
        onZoomChanged: function (newZoom) { settingsManager.setMagnifierZoomFactor(newZoom); }
    }

    RegionCaptureOverlay {
        id: regionOverlay

        objectName: "regionOverlay"
        visible: false
        onCommitted: function (x, y, w, h) {
            regionOverlay.visible = false;
            appController.commitRegionCapture(x, y, w, h);
        }
        onCancelled: {
            regionOverlay.visible = false;
            appController.cancelRegionCapture();
        }
    }

    ControlDisplayDropHighlight {
        displayId: displayManager.controlDisplayId
    }

    // Top strip: touching it reveals the hidden chrome.
    MouseArea {
        objectName: "controlsRevealStrip"
        z: 45
        x: 0
        y: 0
        width: root.width
        height: root.controlsRevealTriggerHeight
        visible: root.uiVisible
        hoverEnabled: true
        acceptedButtons: Qt.NoButton
        onEntered: root.revealControls()
        onPositionChanged: root.revealControls()
        onExited: root.scheduleControlsHide()
    }

    // Badge, help button and shortcut card slide away with the chrome and stay
    // `visible` meanwhile, so that they can animate back.
    ModeBadge {
        id: statusBadge

        objectName: "statusBadge"
        z: 50
        x: AppTheme.px(20)
        y: AppTheme.px(20)
        visible: root.uiVisible
        opacity: root.controlsChromeVisible ? 1 : 0
        transform: Translate {
            x: root.controlsChromeVisible ? 0 : -statusBadge.width - statusBadge.x - AppTheme.px(10)

            Behavior on x {
                NumberAnimation { duration: root.controlsSlideDuration; easing.type: Easing.OutCubic }
            }
        }

        Behavior on opacity {
            NumberAnimation { duration: root.controlsFadeDuration; easing.type: Easing.OutCubic }
        }

        onXChanged: root.syncInteractiveRectsLater()
        onYChanged: root.syncInteractiveRectsLater()
        onWidthChanged: root.syncInteractiveRectsLater()
        onHeightChanged: root.syncInteractiveRectsLater()
        onVisibleChanged: root.syncInteractiveRectsLater()
    }

    HelpButton {
        id: helpBtn

        objectName: "helpBtn"
        z: 60
        x: AppTheme.px(20)
        y: root.height - AppTheme.px(64) - helpBtn.height
        visible: root.uiVisible
        isOpen: root.shortcutPinned
        opacity: root.controlsChromeVisible ? 1 : 0
        transform: Translate {
            y: root.controlsChromeVisible ? 0 : helpBtn.height + AppTheme.px(76)

            Behavior on y {
                NumberAnimation { duration: root.controlsSlideDuration; easing.type: Easing.OutCubic }
            }
        }

        Behavior on opacity {
            NumberAnimation { duration: root.controlsFadeDuration; easing.type: Easing.OutCubic }
        }

        onToggled: root.shortcutPinned = !root.shortcutPinned
        onPeekStarted: root.shortcutPeeking = true
        onPeekEnded: root.shortcutPeeking = false
        onYChanged: root.syncInteractiveRectsLater()
        onWidthChanged: root.syncInteractiveRectsLater()
        onVisibleChanged: root.syncInteractiveRectsLater()
    }

    ShortcutReferenceCard {
        id: shortcutCard

        objectName: "shortcutCard"
        visible: (root.shortcutPinned || root.shortcutPeeking) && root.uiVisible
        controlsVisible: root.controlsChromeVisible
        controlsSlideDuration: root.controlsSlideDuration
        controlsFadeDuration: root.controlsFadeDuration
        onCloseRequested: {
            root.shortcutPinned = false;
            root.shortcutPeeking = false;
        }
        onVisibleChanged: root.syncInteractiveRectsLater()
        onCardRectChanged: root.syncInteractiveRectsLater()
    }

    // Settings backdrop: a click outside the panel closes the settings.
    MouseArea {
        objectName: "settingsBackdrop"
        z: 99
        anchors.fill: parent
        visible: appController.settingsVisible
        onClicked: appController.hideSettings()

        Rectangle {
            anchors.fill: parent
            color: "#50000000"
        }
    }

    // The panels: only the one of the current look shows. Each is centred when
    // it appears and again when the interface size changes it.
    SettingsWindow {
        id: settingsWindows

        objectName: "settingsWindow"
        z: 100
        visible: appController.settingsVisible && root.settingsLook === "windows"
        onVisibleChanged: root.centreSettingsPanel()
        onWidthChanged: root.centreSettingsPanel()
    }

    SettingsWindowLinux {
        id: settingsLinux

        objectName: "settingsWindowLinux"
        z: 100
        visible: appController.settingsVisible && root.settingsLook === "linux"
        onVisibleChanged: root.centreSettingsPanel()
        onWidthChanged: root.centreSettingsPanel()
    }

    SettingsWindowMac {
        id: settingsMac

        objectName: "settingsWindowMac"
        z: 100
        visible: appController.settingsVisible && root.settingsLook === "mac"
        onVisibleChanged: root.centreSettingsPanel()
        onWidthChanged: root.centreSettingsPanel()
    }

    // MacPermissionFlow (z 97) on macOS only.

    // At a first start the card is visible from its creation and signals no
    // change; the controller tests firstRunDone on its own for that case.
    OnboardingCard {
        id: onboarding

        objectName: "onboarding"
        onVisibleChanged: appController.setModalActive(onboarding.visible)
    }

    QuitDialog {
        id: quitDialog

        objectName: "quitDialog"
        onVisibleChanged: appController.setModalActive(quitDialog.visible)
        onAccepted: appController.confirmAndQuit(quitDialog.dontAskAgain)
        onRejected: quitDialog.visible = false
    }

    KeystrokeCard {
        id: keystrokeCard

        x: root.keystrokeCardX(keystrokeCard.width)
        y: root.keystrokeCardY(keystrokeCard.height)
    }

    CaptureFeedback {
        id: captureFeedback

        objectName: "captureFeedback"
        z: 200
    }
}
