import QtQuick
import GlimmoraApp
import "KeyText.js" as KeyText

// The card of the most used keys at the bottom left. It has no backdrop, so a
// spotlight keeps working around it, but strokes never start under it. It
// slides away with the rest of the chrome.
Item {
    id: root

    property bool controlsVisible: true
    property int controlsSlideDuration: 420
    property int controlsFadeDuration: 260
    // Where the card is, in the coordinates of the item it fills.
    readonly property rect cardRect: Qt.rect(card.x, card.y, card.width, card.height)
    readonly property var rows: [
        { action: "", keys: "Alt 1-8", label: qsTr("Switch tool") },
        { action: "spotlight", keys: root.keyText("spotlight"), label: qsTr("Spotlight mode") },
        { action: "exitToCursor", keys: root.keyText("exitToCursor"), label: qsTr("Exit drawing") },
        { action: "undo", keys: root.keyText("undo"), label: qsTr("Undo") },
        { action: "openSettings", keys: root.keyText("openSettings"), label: qsTr("Open settings") },
        { action: "toggleOverlay", keys: root.keyText("toggleOverlay"), label: qsTr("Pause overlay") },
        { action: "quit", keys: root.keyText("quit"), label: qsTr("Quit Glimmora") }
    ]

    signal closeRequested()

    // An action without a hotkey gives an empty chip.
    function keyText(action: string): string {
        void settingsManager.hotkeysRevision;
        return KeyText.compact(settingsManager.hotkeyForAction(action), Qt.platform.os);
    }

    anchors.fill: parent
    z: 140

    Rectangle {
        id: card

        objectName: "shortcutCard"
        x: AppTheme.px(20)
        y: root.height - AppTheme.px(64) - card.height
        width: AppTheme.shortcutCardWidth
        height: content.implicitHeight + AppTheme.px(22)
        radius: AppTheme.px(12)
        color: Qt.rgba(20 / 255, 23 / 255, 28 / 255, 0.86)
        border.width: 1
        border.color: AppTheme.borderHi
        opacity: root.visible && root.controlsVisible ? 1 : 0
        transform: Translate {
            y: root.controlsVisible ? 0 : card.height + AppTheme.px(76)

            Behavior on y {
                NumberAnimation { duration: root.controlsSlideDuration; easing.type: Easing.OutCubic }
            }
        }

        Behavior on opacity {
            NumberAnimation { duration: root.controlsFadeDuration; easing.type: Easing.OutCubic }
        }

        // Takes every button, so that no stroke starts under the card.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
        }

        Column {
            id: content

            x: AppTheme.px(14)
            y: AppTheme.px(11)
            width: card.width - 2 * AppTheme.px(14)
            spacing: AppTheme.px(8)

            Item {
                width: content.width
                height: AppTheme.px(20)

                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Try it")
                    color: AppTheme.text
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.fontSizeBody
                    font.weight: Font.DemiBold
                }

                Text {
                    objectName: "shortcutCardClose"
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    width: AppTheme.px(18)
                    horizontalAlignment: Text.AlignHCenter
                    text: "×"
                    color: closeArea.containsMouse ? AppTheme.textDim : AppTheme.textMute
                    font.pixelSize: AppTheme.px(16)

                    MouseArea {
                        id: closeArea

                        anchors.fill: parent
                        hoverEnabled: true
                        cursorShape: Qt.PointingHandCursor
                        onClicked: root.closeRequested()
                    }
                }
            }

            Column {
                width: content.width

                Repeater {
                    model: root.rows

                    Item {
                        id: row

                        required property var modelData

                        width: row.parent.width
                        height: AppTheme.px(26)

                        Rectangle {
                            id: chip

                            objectName: "shortcutKey_" + row.modelData.action
                            readonly property string keys: row.modelData.keys

                            anchors.verticalCenter: parent.verticalCenter
                            width: AppTheme.px(76)
                            height: AppTheme.px(22)
                            radius: AppTheme.px(5)
                            color: AppTheme.surface3
                            border.width: 1
                            border.color: AppTheme.borderHi

                            Text {
                                anchors.centerIn: parent
                                text: chip.keys
                                color: AppTheme.text
                                font.family: AppTheme.monoFamily
                                font.pixelSize: AppTheme.fontSizeCaption
                                font.weight: Font.Medium
                            }
                        }

                        Text {
                            anchors.left: chip.right
                            anchors.leftMargin: AppTheme.px(10)
                            anchors.right: parent.right
                            anchors.verticalCenter: parent.verticalCenter
                            text: row.modelData.label
                            color: AppTheme.textDim
                            font.family: AppTheme.fontFamily
                            font.pixelSize: AppTheme.fontSizeCaption
                            elide: Text.ElideRight
                        }
                    }
                }
            }

            Rectangle {
                width: content.width
                height: 1
                color: AppTheme.border
            }

            Row {
                id: hintRow

                spacing: AppTheme.px(5)

                Text {
                    id: pressText

                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("press")
                    color: AppTheme.textMute
                    font.family: AppTheme.monoFamily
                    font.pixelSize: AppTheme.fontSizeCaption
                }

                Rectangle {
                    id: hintKey

                    anchors.verticalCenter: parent.verticalCenter
                    width: AppTheme.px(18)
                    height: AppTheme.px(18)
                    radius: AppTheme.px(4)
                    color: AppTheme.surface3
                    border.width: 1
                    border.color: AppTheme.borderHi

                    Text {
                        anchors.centerIn: parent
                        text: "?"
                        color: AppTheme.accent
                        font.family: AppTheme.monoFamily
                        font.pixelSize: AppTheme.fontSizeCaption
                    }
                }

                // Wraps rather than running past the card in a longer language.
                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    width: content.width - pressText.width - hintKey.width - 2 * hintRow.spacing
                    wrapMode: Text.WordWrap
                    text: qsTr("tap to toggle · hold to peek")
                    color: AppTheme.textMute
                    font.family: AppTheme.monoFamily
                    font.pixelSize: AppTheme.fontSizeCaption
                }
            }

            Text {
                objectName: "shortcutCardQuitText"
                width: content.width
                wrapMode: Text.WordWrap
                lineHeight: 1.4
                text: qsTr("Quit with %1, the system tray menu, or long-press the pause button in the toolbar.")
                      .arg(root.keyText("quit") !== "" ? root.keyText("quit") : qsTr("the quit shortcut"))
                color: AppTheme.textMute
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeCaption
            }
        }
    }
}
