import QtQuick
import QtTest
import GlimmoraApp

// The settings panels inside the HUD, driven like a user drives them, against
// the real managers. The HUD's look can be forced, so all three looks run here.
TestCase {
    id: testCase

    property HudWindow hud: null

    function usePanel(look: string): Item {
        hud.settingsLook = look;
        return hud.activeSettingsPanel();
    }

    // Opens the panel on a page and waits for the page to be built.
    function openPage(look: string, pageId: string, document: string): Item {
        const panel = usePanel(look);
        appController.showSettingsPage(pageId);
        tryVerify(() => findChild(panel, document) !== null && findChild(panel, document).status === Loader.Ready);
        return panel;
    }

    function scrollToEnd(page: Flickable) {
        page.contentY = Math.max(0, page.contentHeight - page.height);
    }

    function openEditor(look: string): Item {
        const panel = openPage(look, "hotkeys", look === "linux" ? "LinuxHotkeysTab.qml" : "SettingsHotkeysPage.qml");
        mouseClick(findChild(panel, "edit-pen"));
        compare(panel.hotkeyCaptureAction, "pen");
        compare(panel.hotkeyCaptureValue, "Alt+3");
        tryVerify(() => findChild(panel, "hotkeyKeyCatcher").activeFocus);
        return panel;
    }

    name: "SettingsPanel"
    when: windowShown

    Component {
        id: hudComponent

        HudWindow {
            width: 1600
            height: 1000
            visible: true
        }
    }

    function init() {
        failOnWarning(/.+/);
        appController.hideSettings();
        settingsManager.resetDefaults();
        settingsManager.setFirstRunDone(true);
        settingsManager.setUiScale(1.0);
        hud = createTemporaryObject(hudComponent, testCase);
        tryCompare(hud.contentItem, "width", 1600);
    }

    function test_pageRouting_data() {
        return [
            { tag: "linux: the spotlight shares the first tab", look: "linux", page: "spotlight", index: 0, document: "LinuxGeneralTab.qml" },
            { tag: "linux: keystrokes on the drawing tab", look: "linux", page: "keys", index: 1, document: "LinuxDrawingTab.qml" },
            { tag: "linux: capture", look: "linux", page: "capture", index: 2, document: "LinuxCaptureTab.qml" },
            { tag: "linux: hotkeys", look: "linux", page: "hotkeys", index: 3, document: "LinuxHotkeysTab.qml" },
            { tag: "linux: portal on the system tab", look: "linux", page: "portal", index: 4, document: "LinuxSystemTab.qml" },
            { tag: "linux: an unknown id changes nothing", look: "linux", page: "permissions", index: -1 },
            { tag: "windows: effects", look: "windows", page: "effects", index: 3, document: "SettingsEffectsPage.qml" },
            { tag: "windows: capture", look: "windows", page: "capture", index: 5, document: "SettingsCapturePage.qml" },
            { tag: "windows: displays", look: "windows", page: "displays", index: 7, document: "SettingsDisplaysPage.qml" },
            { tag: "windows: portal", look: "windows", page: "portal", index: 8, document: "SettingsPortalPage.qml" },
            { tag: "windows: an unknown id changes nothing", look: "windows", page: "Displays", index: -1 },
            { tag: "mac: permissions", look: "mac", page: "permissions", index: 5, document: "MacPermissionsPage.qml" },
            { tag: "mac: capture is no page of this look", look: "mac", page: "capture", index: -1 },
        ];
    }

    function test_pageRouting(data) {
        const panel = usePanel(data.look);
        const current = data.look === "linux" ? "currentTab" : "currentPage";
        const start = data.index === 1 ? 2 : 1;
        panel[current] = start;
        verify(!panel.visible);
        appController.showSettingsPage(data.page);
        verify(appController.settingsVisible);
        verify(panel.visible);
        compare(panel[current], data.index >= 0 ? data.index : start);
        for (const name of ["settingsWindow", "settingsWindowLinux", "settingsWindowMac"])
            compare(findChild(hud.contentItem, name).visible, findChild(hud.contentItem, name) === panel);
        compare(panel.x, Math.round((hud.width - panel.width) / 2));
        compare(panel.y, Math.round((hud.height - panel.height) / 2));
        if (data.document)
            tryCompare(findChild(panel, data.document), "status", Loader.Ready);
    }

    function test_editorNamesKeys_data() {
        const ctrlAlt = Qt.ControlModifier | Qt.AltModifier;
        return [
            { tag: "modifiers in the store's order", look: "linux", keys: [[Qt.Key_P, ctrlAlt | Qt.ShiftModifier]], value: "Ctrl+Alt+Shift+P" },
            { tag: "the logo key is Super on Linux", look: "linux", keys: [[Qt.Key_F5, Qt.MetaModifier]], value: "Super+F5" },
            { tag: "the logo key is Win in the Windows look", look: "windows", keys: [[Qt.Key_F5, Qt.MetaModifier]], value: "Win+F5" },
            { tag: "the last named key counts", look: "linux", keys: [[Qt.Key_7, Qt.AltModifier], [Qt.Key_F24, 0]], value: "F24" },
            { tag: "modifiers alone, Space and Tab leave the value", look: "linux",
              keys: [[Qt.Key_Control, Qt.ControlModifier], [Qt.Key_Space, 0], [Qt.Key_Tab, 0], [Qt.Key_Meta, Qt.MetaModifier]], value: "Alt+3" },
            { tag: "a first Esc is recorded", look: "windows", keys: [[Qt.Key_Escape, 0]], value: "Esc" },
            { tag: "a second Esc leaves", look: "linux", keys: [[Qt.Key_Escape, 0], [Qt.Key_Escape, 0]], value: "" },
        ];
    }

    function test_editorNamesKeys(data) {
        const panel = openEditor(data.look);
        for (const [key, modifiers] of data.keys)
            keyClick(key, modifiers);
        compare(panel.hotkeyCaptureAction, data.value === "" ? "" : "pen");
        if (data.value !== "") {
            compare(panel.hotkeyCaptureValue, data.value);
            compare(findChild(panel, "hotkeyEditorValue").text, data.value);
            mouseClick(findChild(panel, "hotkeyEditorCancel"));
            compare(panel.hotkeyCaptureAction, "");
        }
        compare(settingsManager.hotkeyForAction("pen"), "Alt+3");
    }

    function test_saveMovesTheRegistration_data() {
        return [
            { tag: "a free combination replaces a refused one", key: Qt.Key_9, modifiers: Qt.ControlModifier | Qt.AltModifier, stored: "Ctrl+Alt+9", shown: "Ctrl+Alt+9" },
            { tag: "Super is stored as Win", key: Qt.Key_F9, modifiers: Qt.MetaModifier, stored: "Win+F9", shown: "Super+F9" },
        ];
    }

    function test_saveMovesTheRegistration(data) {
        const panel = openEditor("linux");
        const pill = findChild(panel, "conflict-pen");
        verify(pill.visible);
        verify(!panelTest.registered("Alt+3")); // qmllint disable unqualified
        keyClick(data.key, data.modifiers);
        mouseClick(findChild(panel, "hotkeyEditorSave"));
        compare(panel.hotkeyCaptureAction, "");
        compare(settingsManager.hotkeyForAction("pen"), data.stored);
        verify(panelTest.registered(data.stored)); // qmllint disable unqualified
        verify(!pill.visible);
        compare(findChild(panel, "keys-pen").sequence, data.shown);

        scrollToEnd(findChild(panel, "LinuxHotkeysTab.qml").item);
        mouseClick(findChild(panel, "resetHotkeys"));
        compare(settingsManager.hotkeyForAction("pen"), "Alt+3");
        verify(!panelTest.registered(data.stored)); // qmllint disable unqualified
        verify(pill.visible);
    }

    function test_scaleChips_data() {
        return [
            { tag: "1.2 lights 120%", scale: 1.2, index: 2 },
            { tag: "1.25 lights none", scale: 1.25, index: -1 },
            { tag: "within half a percent counts", scale: 1.204, index: 2 },
            { tag: "a percent off lights none", scale: 1.21, index: -1 },
            { tag: "0.9 lights 90%", scale: 0.9, index: 0 },
            { tag: "1.5 lights 150%", scale: 1.5, index: 4 },
        ];
    }

    function test_scaleChips(data) {
        settingsManager.setUiScale(data.scale);
        for (const look of ["linux", "windows"]) {
            const panel = openPage(look, "general", look === "linux" ? "LinuxGeneralTab.qml" : "SettingsGeneralPage.qml");
            compare(findChild(panel, "uiScaleChips").activeIndex, data.index, look);
        }
        // A chip writes the zoom, and the grown panel is centred again.
        const panel = usePanel("linux");
        mouseClick(findChild(findChild(panel, "uiScaleChips"), "chip-135%"));
        compare(settingsManager.uiScale, 1.35);
        compare(panel.width, AppTheme.px(720));
        compare(panel.x, Math.round((hud.width - panel.width) / 2));
    }

    function test_languageSearch_data() {
        return [
            { tag: "English name, any case", query: "GER", codes: ["de"] },
            { tag: "a code, and native names that hold it", query: "de", codes: ["de", "nl"] },
            { tag: "blanks around the query", query: "  vi ", codes: ["vi"] },
            { tag: "native script", query: "日本", codes: ["ja"] },
            { tag: "nothing matches", query: "xyz", codes: [] },
        ];
    }

    function test_languageSearch(data) {
        const panel = openPage("windows", "general", "SettingsGeneralPage.qml");
        mouseClick(findChild(panel, "moreLanguages"));
        const search = findChild(panel, "languageSearch");
        const list = findChild(panel, "languageList");
        tryVerify(() => search.activeFocus);
        compare(search.text, "");
        compare(list.count, 15);
        if (/^[ -~]*$/.test(data.query)) {
            for (const character of data.query)
                keyClick(character);
        } else {
            search.text = data.query;
        }
        compare(search.text, data.query);
        compare(list.model.map(language => language.code), data.codes);
    }

    function test_languageChoice() {
        const panel = openPage("windows", "general", "SettingsGeneralPage.qml");
        const popup = findChild(panel, "languagePopup");
        const list = findChild(panel, "languageList");
        mouseClick(findChild(panel, "moreLanguages"));
        verify(popup.parent.visible);
        // A language still to come takes no click.
        list.positionViewAtEnd();
        mouseClick(findChild(panel, "language-nl"));
        compare(settingsManager.language, "en");
        verify(popup.parent.visible);
        list.positionViewAtBeginning();
        mouseClick(findChild(panel, "language-ja"));
        compare(settingsManager.language, "ja");
        verify(!popup.parent.visible);
        // The quick chips write the same setting, and the list marks it.
        mouseClick(findChild(panel, "chip-ZH-CN"));
        compare(settingsManager.language, "zh-CN");
        mouseClick(findChild(panel, "moreLanguages"));
        verify(findChild(panel, "language-zh-CN").current);
        verify(!findChild(panel, "language-ja").current);
        keyClick(Qt.Key_Escape);
        verify(!popup.parent.visible);
    }

    function test_resetConfirmation_data() {
        return [
            { tag: "Esc cancels", key: Qt.Key_Escape, reset: false },
            { tag: "Return confirms", key: Qt.Key_Return, reset: true },
            { tag: "Enter confirms", key: Qt.Key_Enter, reset: true },
            { tag: "a click beside the card cancels", key: 0, reset: false },
        ];
    }

    function test_resetConfirmation(data) {
        settingsManager.setBrushSize(20);
        settingsManager.setHotkeyForAction("pen", "Ctrl+Alt+9");
        const panel = openPage("windows", "general", "SettingsGeneralPage.qml");
        scrollToEnd(findChild(panel, "SettingsGeneralPage.qml").item);
        mouseClick(findChild(panel, "resetAllSettings"));
        verify(panel.resetConfirmVisible);
        tryVerify(() => findChild(panel, "resetConfirmCard").activeFocus);
        if (data.key !== 0)
            keyClick(data.key);
        else
            mouseClick(panel, AppTheme.px(20), panel.height - AppTheme.px(20));
        verify(!panel.resetConfirmVisible);
        compare(settingsManager.brushSize, data.reset ? 5 : 20);
        compare(settingsManager.hotkeyForAction("pen"), data.reset ? "Alt+3" : "Ctrl+Alt+9");
        verify(settingsManager.firstRunDone);
    }

    function test_macSmoothingStoresTheClampedLevel() {
        const panel = openPage("mac", "drawing", "MacDrawingPage.qml");
        const track = findChild(findChild(panel, "macStrokeSmoothing"), "sliderKnob").parent;
        const knob = AppTheme.px(18);
        // 40 on the page's own 0 to 100 scale; the store keeps at most level 3.
        mouseClick(track, knob / 2 + 0.4 * (track.width - knob), track.height / 2);
        compare(settingsManager.strokeSmoothing, 3);
        mouseClick(track, 0, track.height / 2);
        compare(settingsManager.strokeSmoothing, 0);
    }
}
