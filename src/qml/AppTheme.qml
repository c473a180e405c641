pragma Singleton
import QtQuick

// Colours, fonts, sizes and durations of the chrome. Sizes go through px(), so
// the whole chrome follows the user's zoom; drawing geometry never does.
QtObject {
    id: root

    readonly property bool isWindows: Qt.platform.os === "windows"
    readonly property bool isMacOS: Qt.platform.os === "osx"
    readonly property bool isLinux: Qt.platform.os === "linux"

    // Without a settings object (tests, previews) the chrome uses the default zoom.
    readonly property real uiScale: typeof settingsManager !== "undefined" && settingsManager
                                    ? settingsManager.uiScale : 1.2

    function px(value: real): int {
        return Math.round(value * root.uiScale);
    }

    // Brand accent; Linux gets the desktop's orange.
    readonly property color accent: root.isLinux ? "#E95420" : "#F4A65A"
    readonly property color accentSoft: root.isLinux ? "#2EE95420" : "#2EF4A65A"
    readonly property color accentDeep: root.isLinux ? "#C4431A" : "#D8843A"

    readonly property color bg: "#0E1014"
    readonly property color surface: "#161A20"
    readonly property color surface2: "#1E232B"
    readonly property color surface3: "#262C36"
    readonly property color border: "#2A313C"
    readonly property color borderHi: "#3A424F"
    readonly property color text: "#ECEEF2"
    readonly property color textDim: "#A4ABB8"
    readonly property color textMute: "#6B7280"
    readonly property color red: "#F05D5D"
    readonly property color yellow: "#F4C24A"
    readonly property color green: "#5EC27A"
    readonly property color blue: "#5DA8F0"
    readonly property color magenta: "#C57BE0"

    readonly property string fontFamily: root.isMacOS
                                         ? "SF Pro Text, SF Pro Display, Geist, -apple-system"
                                         : "Geist, Segoe UI Variable, Inter, Noto Sans, WenQuanYi Micro Hei, sans-serif"
    readonly property string monoFamily: root.isMacOS
                                         ? "SF Mono, Menlo, JetBrains Mono, monospace"
                                         : "JetBrains Mono, Cascadia Mono, Source Code Pro, WenQuanYi Micro Hei Mono, monospace"

    readonly property int fontSizeBody: root.px(13)
    readonly property int fontSizeCaption: root.px(11)
    readonly property int fontSizeHeader: root.px(22)
    readonly property int fontSizeTitle: root.px(18)
    readonly property int cornerRadius: root.px(14)
    readonly property int cornerSmall: root.px(8)
    readonly property int iconSize: root.px(17)
    readonly property int toolbarChromeHeight: root.px(42)
    readonly property int toolbarButtonWidth: root.px(32)
    readonly property int toolbarButtonHeight: root.px(30)
    readonly property int toolbarHandleHeight: root.px(14)
    readonly property int menuItemHeight: root.px(36)
    readonly property int controlHeight: root.px(32)
    readonly property int settingsWidth: root.px(980)
    readonly property int settingsHeight: root.px(660)
    readonly property int sidebarWidth: root.px(220)
    readonly property int linuxSettingsWidth: root.px(720)
    readonly property int dialogWidth: root.px(360)
    readonly property int helpButtonSize: root.px(32)
    readonly property int shortcutCardWidth: root.px(280)
    readonly property int onboardingCardWidth: root.px(420)
    readonly property int keyCapMinHeight: root.px(38)
    readonly property int keyCapFontSize: root.px(22)
    readonly property int toolbarHeight: root.px(58)

    readonly property int durationFast: 80
    readonly property int durationNormal: 160
    readonly property int durationSlow: 260

    // Older names still used by some documents.
    readonly property color accentColor: root.accent
    readonly property color surfaceBg: root.surface
    readonly property color surfaceCard: root.surface2
    readonly property color surfaceSidebar: root.bg
    readonly property color borderDefault: root.border
    readonly property color borderSubtle: root.borderHi
    readonly property color textPrimary: root.text
    readonly property color textSecondary: root.textDim
    readonly property color textDisabled: root.textMute
    readonly property int buttonSize: root.toolbarButtonWidth

    // Qt 6.4 has no colour-scheme hint: a dark system is one whose window colour
    // is dark. The palette object follows application palette changes live.
    readonly property SystemPalette systemPalette: SystemPalette {
        colorGroup: SystemPalette.Active
    }
    readonly property bool systemIsDark: root.systemPalette.window.hslLightness < 0.5

    function themeIsDark(choice: int): bool {
        return choice === 0 ? true : choice === 1 ? false : root.systemIsDark;
    }

    readonly property bool winIsDark: root.themeIsDark(typeof settingsManager !== "undefined" && settingsManager
                                                       ? settingsManager.windowsTheme : 2)
    readonly property bool linuxIsDark: root.themeIsDark(typeof settingsManager !== "undefined" && settingsManager
                                                         ? settingsManager.linuxTheme : 2)

    readonly property color winBg: root.winIsDark ? "#F5181B21" : "#F5F3F3F3"
    readonly property color winRootBorder: root.winIsDark ? "#14FFFFFF" : "#12000000"
    readonly property color winCard: root.winIsDark ? "#0AFFFFFF" : "#FFFFFF"
    readonly property color winLine: root.winIsDark ? "#08FFFFFF" : "#14000000"
    readonly property color winSidebarFooter: root.winIsDark ? "#06FFFFFF" : "#08000000"
    readonly property color winItemBg: root.winIsDark ? "#10FFFFFF" : "#0D000000"
    readonly property color winItemHover: root.winIsDark ? "#18FFFFFF" : "#0A000000"
    readonly property color winItemActive: root.winIsDark ? "#20FFFFFF" : "#14000000"
    readonly property color winPopupBg: root.winIsDark ? "#1C1F27" : "#FFFFFF"
    readonly property color winTrack: root.winIsDark ? "#262C36" : "#D3D3D3"
    readonly property color winText: root.winIsDark ? "#ECEEF2" : "#1C1C1C"
    readonly property color winTextDim: root.winIsDark ? "#A4ABB8" : "#5B5B5B"
    readonly property color winTextMute: root.winIsDark ? "#6B7280" : "#717171"
    readonly property color winBorder: root.winIsDark ? "#2A313C" : "#E5E5E5"
    readonly property color winBorderHi: root.winIsDark ? "#3A424F" : "#D3D3D3"

    readonly property color linuxBg: root.linuxIsDark ? "#242424" : "#FAFAFA"
    readonly property color linuxSurface: root.linuxIsDark ? "#303030" : "#FFFFFF"
    readonly property color linuxHeaderBg: root.linuxIsDark ? "#2C2C2C" : "#EBEBEB"
    readonly property color linuxHeaderBorder: root.linuxIsDark ? "#14FFFFFF" : "#14000000"
    readonly property color linuxText: root.linuxIsDark ? "#FFFFFF" : "#1A1A1A"
    readonly property color linuxTextDim: root.linuxIsDark ? "#8CFFFFFF" : "#8C000000"
    readonly property color linuxBorderSubtle: root.linuxIsDark ? "#0FFFFFFF" : "#0F000000"
    // The Linux panel's control fills: black at 5, 10 and 15 % on the light
    // theme, white on the dark one, where black would not show.
    readonly property color linuxControlFill: root.linuxIsDark ? "#14FFFFFF" : "#0D000000"
    readonly property color linuxControlLine: root.linuxIsDark ? "#1FFFFFFF" : "#1A000000"
    readonly property color linuxSwitchOff: root.linuxIsDark ? "#40FFFFFF" : "#25000000"
    readonly property color linuxTrack: root.linuxIsDark ? "#30FFFFFF" : "#1A000000"
}
