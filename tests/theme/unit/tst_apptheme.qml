import QtQuick
import QtTest
import GlimmoraApp

TestCase {
    id: testCase

    name: "AppTheme"

    Component {
        id: textComponent

        Text {
            text: "Ctrl+Shift+S"
        }
    }

    function init() {
        settingsManager.uiScale = 1.2;
        settingsManager.windowsTheme = 2;
        settingsManager.linuxTheme = 2;
        themeTest.setSystemWindowColor("#202020"); // qmllint disable unqualified
    }

    function cleanupTestCase() {
        settingsManager.uiScale = 1.2;
    }

    function test_px_data() {
        return [
            { tag: "13 at 1.2 rounds 15.6 up", scale: 1.2, value: 13, expected: 16 },
            { tag: "11 at 1.2 rounds 13.2 down", scale: 1.2, value: 11, expected: 13 },
            { tag: "7 at 1.5 rounds 10.5 up", scale: 1.5, value: 7, expected: 11 },
            { tag: "0.4 at 0.9 rounds to 0", scale: 0.9, value: 0.4, expected: 0 },
        ];
    }

    function test_px(data) {
        settingsManager.uiScale = data.scale;
        compare(AppTheme.uiScale, data.scale);
        compare(AppTheme.px(data.value), data.expected);
    }

    function test_tokensFollowScale_data() {
        return [
            { tag: "fontSizeBody", base: 13 }, { tag: "settingsWidth", base: 980 },
        ];
    }

    // Every size token is live: changing the zoom re-evaluates it.
    function test_tokensFollowScale(data) {
        settingsManager.uiScale = 1.2;
        compare(AppTheme[data.tag], Math.round(data.base * 1.2));
        settingsManager.uiScale = 1.5;
        compare(AppTheme[data.tag], Math.round(data.base * 1.5));
    }

    function test_darkChoice_data() {
        return [
            { tag: "dark choice on a light system", choice: 0, system: "#F0F0F0", dark: true },
            { tag: "light choice on a dark system", choice: 1, system: "#202020", dark: false },
            { tag: "system choice on a dark system", choice: 2, system: "#202020", dark: true },
            { tag: "system choice on a light system", choice: 2, system: "#F0F0F0", dark: false },
        ];
    }

    function test_darkChoice(data) {
        themeTest.setSystemWindowColor(data.system); // qmllint disable unqualified
        settingsManager.windowsTheme = data.choice;
        settingsManager.linuxTheme = data.choice;
        compare(AppTheme.winIsDark, data.dark);
        compare(AppTheme.linuxIsDark, data.dark);
        compare(AppTheme.winText, data.dark ? Qt.color("#ECEEF2") : Qt.color("#1C1C1C"));
        compare(AppTheme.linuxBg, data.dark ? Qt.color("#242424") : Qt.color("#FAFAFA"));
    }

    // "System" follows a scheme change while the program runs; a fixed choice does not.
    function test_systemSchemeChangeIsLive() {
        settingsManager.windowsTheme = 2;
        settingsManager.linuxTheme = 0;
        themeTest.setSystemWindowColor("#F0F0F0"); // qmllint disable unqualified
        compare(AppTheme.winIsDark, false);
        themeTest.setSystemWindowColor("#1A1A1A"); // qmllint disable unqualified
        compare(AppTheme.winIsDark, true);
        compare(AppTheme.winBg, Qt.color("#F5181B21"));
        themeTest.setSystemWindowColor("#F0F0F0"); // qmllint disable unqualified
        compare(AppTheme.winIsDark, false);
        compare(AppTheme.linuxIsDark, true);
    }

    // The theme's family lists must resolve to the bundled fonts, in each weight.
    function test_bundledFontsResolve_data() {
        return [
            { tag: "body text is Geist Regular", mono: false, weight: Font.Normal, family: "Geist", style: "Regular" },
            { tag: "Geist Medium", mono: false, weight: Font.Medium, family: "Geist", style: "Medium" },
            { tag: "Geist SemiBold", mono: false, weight: Font.DemiBold, family: "Geist", style: "SemiBold" },
            { tag: "Geist Bold", mono: false, weight: Font.Bold, family: "Geist", style: "Bold" },
            { tag: "mono text is JetBrains Mono", mono: true, weight: Font.Normal, family: "JetBrains Mono", style: "Regular" },
        ];
    }

    function test_bundledFontsResolve(data) {
        const text = createTemporaryObject(textComponent, testCase, {
            "font.family": data.mono ? AppTheme.monoFamily : AppTheme.fontFamily,
            "font.weight": data.weight,
        });
        compare(text.fontInfo.family, data.family);
        compare(text.fontInfo.styleName, data.style);
    }
}
