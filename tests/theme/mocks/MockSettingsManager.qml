import QtQuick

// Stand-in for SettingsManager with the first-run defaults.
QtObject {
    property real uiScale: 1.2
    property int windowsTheme: 2
    property int linuxTheme: 2
    property int rippleSize: 48
    property int rippleDuration: 550
    property string leftClickColor: "#F4A65A"
    property bool overlayControlsAlwaysVisible: false
    property int keystrokePosition: 1
}
