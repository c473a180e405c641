import QtQuick
import QtTest
import GlimmoraApp

// In every language the cards and the toolbar's menus show each text whole,
// inside its card or panel, and no two texts run into each other.
Item {
    id: scene

    width: 1280
    height: 720

    Item {
        id: stage

        anchors.fill: parent

        OnboardingCard {
            id: onboarding
        }

        QuitDialog {
            id: quitDialog
        }

        ShortcutReferenceCard {
            id: shortcutCard
        }

        ModeBadge {
            id: badge

            x: 24
            y: 24
        }

        PauseMenu {
            id: pauseMenu

            x: 40
            y: 80
            open: true
        }

        ToolbarCaptureMenu {
            id: captureMenu

            panelX: 400
            panelY: 80
            open: true
        }

        ToolbarRecordMenu {
            id: recordMenu

            panelX: 800
            panelY: 80
            open: true
        }
    }

    TestCase {
        id: testCase

        name: "Translations"
        when: windowShown

        function initTestCase() {
            settingsManager.uiScale = 1.2;
            settingsManager.firstRunDone = false;
            settingsManager.hotkeys = Object.assign({ "captureRegion": "Ctrl+Shift+A", "captureFullScreen": "Ctrl+Shift+S" },
                                                    settingsManager.hotkeys);
            settingsManager.hotkeysRevision += 1;
            appController.overlayEnabled = true;
            appController.currentTool = "cursor";
            quitDialog.visible = true;
        }

        function cleanupTestCase() {
            themeTest.switchLanguage("en"); // qmllint disable unqualified
        }

        function texts(item: Item): var {
            let found = [];
            for (let i = 0; i < item.children.length; ++i) {
                const child = item.children[i];
                if (child instanceof Text && child.visible && child.text !== "")
                    found.push(child);
                found = found.concat(testCase.texts(child));
            }
            return found;
        }

        // Where the glyphs of a text lie, in the coordinates of `frame`.
        function paintedRect(text: Text, frame: Item): rect {
            const origin = text.mapToItem(frame, 0, 0);
            let x = origin.x;
            if (text.effectiveHorizontalAlignment === Text.AlignRight)
                x += text.width - text.contentWidth;
            else if (text.effectiveHorizontalAlignment === Text.AlignHCenter)
                x += (text.width - text.contentWidth) / 2;
            return Qt.rect(x, origin.y, text.contentWidth, Math.min(text.height, text.contentHeight));
        }

        function overlaps(a: rect, b: rect): bool {
            const slack = 0.5;
            return a.x + a.width > b.x + slack && b.x + b.width > a.x + slack
                    && a.y + a.height > b.y + slack && b.y + b.height > a.y + slack;
        }

        // Every text of `frame`, within `bounds` (frame coordinates), whole and apart.
        function checkTexts(where: string, frame: Item, bounds: rect) {
            const found = testCase.texts(frame);
            verify(found.length > 0, where);
            const rects = found.map(text => testCase.paintedRect(text, frame));
            for (let i = 0; i < found.length; ++i) {
                const text = found[i];
                const r = rects[i];
                const name = where + " \"" + text.text + "\"";
                verify(!text.truncated, name + " is cut short");
                verify(text.contentWidth <= text.width + 0.5, name + " is wider than its item");
                verify(r.x >= bounds.x - 0.5 && r.x + r.width <= bounds.x + bounds.width + 0.5,
                       name + " runs out of its frame");
                for (let j = i + 1; j < found.length; ++j)
                    verify(!testCase.overlaps(r, rects[j]), name + " runs into \"" + found[j].text + "\"");
            }
        }

        function frameOf(item: Item): rect {
            return Qt.rect(0, 0, item.width, item.height);
        }

        function panelOf(menu: ToolbarMenu): rect {
            return Qt.rect(menu.panelX, menu.panelY, menu.panelWidth, menu.height);
        }

        function test_textsFit_data() {
            let rows = [];
            for (const code of ["en", "de", "es", "fr", "ja", "ko", "pt-BR", "ru", "vi", "zh-CN"])
                rows.push({ tag: code, code: code });
            return rows;
        }

        function test_textsFit(data) {
            compare(themeTest.switchLanguage(data.code), data.code !== "en"); // qmllint disable unqualified
            // A translated badge no longer reads English.
            compare(findChild(badge, "badgeLabel").text === "Glimmora · Cursor", data.code === "en");
            waitForRendering(stage);

            const onboardingCard = findChild(onboarding, "onboardingCard");
            checkTexts("welcome card", onboardingCard, frameOf(onboardingCard));
            const quitCard = findChild(quitDialog, "quitCard");
            checkTexts("quit dialog", quitCard, frameOf(quitCard));
            const card = findChild(shortcutCard, "shortcutCard");
            checkTexts("shortcut card", card, frameOf(card));
            checkTexts("mode badge", badge, frameOf(badge));
            checkTexts("pause menu", pauseMenu, frameOf(pauseMenu));
            checkTexts("capture menu", captureMenu, panelOf(captureMenu));
            checkTexts("record menu", recordMenu, panelOf(recordMenu));
        }
    }
}
