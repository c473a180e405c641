import QtQuick
import GlimmoraApp

// Asks before every preference, the display layout and the hotkeys go back to
// their defaults. Esc or a click beside the card cancels; Return confirms.
Item {
    id: root

    signal closed()

    function confirm() {
        settingsManager.resetDefaults();
        displayManager.resetDisplayDefaults();
        root.closed();
    }

    anchors.fill: parent
    onVisibleChanged: {
        if (!root.visible)
            return;
        if (root.Window.window)
            root.Window.window.requestActivate();
        card.forceActiveFocus();
    }

    Rectangle {
        anchors.fill: parent
        color: "#72000000"
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        onClicked: root.closed()
        onWheel: wheel => wheel.accepted = true
    }

    Rectangle {
        id: card

        objectName: "resetConfirmCard"
        anchors.centerIn: parent
        width: AppTheme.px(380)
        height: content.implicitHeight + 2 * AppTheme.px(22)
        radius: AppTheme.px(12)
        color: "#F51C1E26"
        border.width: 1
        border.color: AppTheme.borderHi
        scale: root.visible ? 1 : 0.92
        opacity: root.visible ? 1 : 0
        Keys.onShortcutOverride: event => event.accepted = true
        Keys.onPressed: event => {
            event.accepted = true;
            if (event.key === Qt.Key_Escape)
                root.closed();
            else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                root.confirm();
        }

        Behavior on scale {
            NumberAnimation { duration: 180; easing.type: Easing.OutBack }
        }
        Behavior on opacity {
            NumberAnimation { duration: 140; easing.type: Easing.OutQuad }
        }

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
        }

        Column {
            id: content

            x: AppTheme.px(22)
            y: AppTheme.px(22)
            width: card.width - 2 * AppTheme.px(22)
            spacing: AppTheme.px(12)

            Text {
                text: qsTranslate("SettingsWindow", "Reset all settings?")
                color: AppTheme.text
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeTitle
                font.weight: Font.DemiBold
            }
            Text {
                width: parent.width
                text: qsTranslate("SettingsWindow", "This will restore app preferences, display layout, capture options, recording options, and hotkeys to defaults. Your welcome status will stay unchanged.")
                wrapMode: Text.Wrap
                lineHeight: 1.3
                color: AppTheme.textDim
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeBody
            }
            Row {
                anchors.right: parent.right
                spacing: AppTheme.px(8)

                PanelButton {
                    text: qsTranslate("SettingsWindow", "Cancel")
                    textColor: AppTheme.text
                    fillColor: "#10FFFFFF"
                    lineColor: AppTheme.borderHi
                    onClicked: root.closed()
                }
                PanelButton {
                    objectName: "resetConfirmButton"
                    text: qsTranslate("SettingsWindow", "Reset settings")
                    primary: true
                    primaryColor: AppTheme.yellow
                    primaryTextColor: "#1A1208"
                    onClicked: root.confirm()
                }
            }
            Text {
                anchors.right: parent.right
                text: qsTranslate("SettingsWindow", "Esc to cancel · Enter to confirm")
                color: AppTheme.textMute
                font.family: AppTheme.monoFamily
                font.pixelSize: AppTheme.fontSizeCaption
            }
        }
    }
}
