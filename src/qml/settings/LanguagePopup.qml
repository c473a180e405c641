import QtQuick
import GlimmoraApp
import "SettingsLogic.js" as SettingsLogic

// The full list of languages, opened above the button that asks for it, with
// a search over native names, English names and codes. Choosing a language
// stores it; languages still to come are shown but cannot be chosen.
Item {
    id: root

    function openAt(anchor: Item) {
        const place = anchor.mapToItem(root, anchor.width, 0);
        popup.x = Math.max(AppTheme.px(8), Math.min(root.width - popup.width - AppTheme.px(8),
                                                    place.x - popup.width));
        popup.y = Math.max(AppTheme.px(8), place.y - popup.height - AppTheme.px(6));
        search.text = "";
        root.visible = true;
        if (root.Window.window)
            root.Window.window.requestActivate();
        search.forceActiveFocus();
    }

    function close() {
        root.visible = false;
    }

    anchors.fill: parent
    visible: false

    // A press anywhere beside the list closes it.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        onPressed: root.close()
        onWheel: wheel => wheel.accepted = true
    }

    Rectangle {
        id: popup

        objectName: "languagePopup"
        width: AppTheme.px(264)
        height: content.implicitHeight + 2 * AppTheme.px(10)
        radius: AppTheme.px(10)
        color: AppTheme.winPopupBg
        border.width: 1
        border.color: AppTheme.winBorder

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
        }

        Column {
            id: content

            x: AppTheme.px(10)
            y: AppTheme.px(10)
            width: popup.width - 2 * AppTheme.px(10)
            spacing: AppTheme.px(8)

            Text {
                text: qsTranslate("SettingsWindow", "Select language")
                color: AppTheme.winText
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeBody
                font.weight: Font.DemiBold
            }
            Rectangle {
                width: parent.width
                height: AppTheme.px(30)
                radius: AppTheme.px(6)
                color: AppTheme.winItemBg
                border.width: 1
                border.color: search.activeFocus ? AppTheme.accent : AppTheme.winBorder

                TextInput {
                    id: search

                    objectName: "languageSearch"
                    anchors.fill: parent
                    anchors.leftMargin: AppTheme.px(10)
                    anchors.rightMargin: AppTheme.px(10)
                    verticalAlignment: TextInput.AlignVCenter
                    clip: true
                    color: AppTheme.winText
                    selectionColor: AppTheme.accent
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.fontSizeBody
                    // Esc closes the list before any shortcut of the program sees it.
                    Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
                    Keys.onEscapePressed: root.close()
                }
                Text {
                    anchors.fill: search
                    verticalAlignment: Text.AlignVCenter
                    visible: search.text === ""
                    text: qsTranslate("SettingsWindow", "Search…")
                    color: AppTheme.winTextMute
                    font: search.font
                }
            }
            ListView {
                id: list

                objectName: "languageList"
                width: parent.width
                height: AppTheme.px(210)
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                model: SettingsLogic.filterLanguages(settingsManager.availableLanguages(), search.text)

                // Qt 6.4's linter does not see this document's ids inside a delegate.
                // qmllint disable unqualified
                delegate: LanguageRow {
                    width: list.width
                    onChosen: code => {
                        settingsManager.setLanguage(code);
                        root.close();
                    }
                }
                // qmllint enable unqualified
            }
        }
    }
}
