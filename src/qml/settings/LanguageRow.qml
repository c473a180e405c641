import QtQuick
import GlimmoraApp

// One language in the list: native name over English name, a tick on the
// stored one, and "Soon" on one that cannot be chosen yet.
Rectangle {
    id: root

    required property var modelData
    readonly property bool current: root.modelData.code === settingsManager.language

    signal chosen(string code)

    objectName: "language-" + root.modelData.code
    height: AppTheme.px(44)
    radius: AppTheme.px(6)
    color: root.current ? "#1AF4A65A" : area.containsMouse && root.modelData.supported ? AppTheme.winItemHover
                                                                                      : "transparent"
    opacity: root.modelData.supported ? 1 : 0.45

    Column {
        x: AppTheme.px(10)
        anchors.verticalCenter: parent.verticalCenter
        spacing: AppTheme.px(1)

        Text {
            text: root.modelData.nativeName
            color: AppTheme.winText
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
        }
        Text {
            text: root.modelData.englishName
            color: AppTheme.winTextDim
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
        }
    }
    Text {
        anchors.right: parent.right
        anchors.rightMargin: AppTheme.px(12)
        anchors.verticalCenter: parent.verticalCenter
        visible: root.current || !root.modelData.supported
        text: root.current ? "✓" : qsTranslate("SettingsWindow", "Soon")
        color: root.current ? AppTheme.accent : AppTheme.winTextMute
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.fontSizeCaption
    }
    MouseArea {
        id: area

        anchors.fill: parent
        enabled: root.modelData.supported
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: root.chosen(root.modelData.code)
    }
}
