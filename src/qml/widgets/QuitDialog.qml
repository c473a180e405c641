import QtQuick
import GlimmoraApp
import "KeyText.js" as KeyText

// Asks before the program quits. Each opening starts with the check box off
// and takes the keyboard: Esc cancels, Return confirms.
Item {
    id: root

    property bool dontAskAgain: false
    readonly property string quitShortcutText: {
        void settingsManager.hotkeysRevision;
        return KeyText.plain(settingsManager.hotkeyForAction("quit"), Qt.platform.os);
    }

    signal accepted()
    signal rejected()

    component DialogButton: Rectangle {
        id: button

        property string label
        property color labelColor: AppTheme.text
        property color idleColor: "transparent"
        property color hoverColor
        property color pressedColor
        property int labelWeight: Font.Normal

        signal clicked()

        width: buttonLabel.implicitWidth + AppTheme.px(32)
        height: AppTheme.px(34)
        radius: AppTheme.px(8)
        color: buttonArea.pressed ? button.pressedColor : buttonArea.containsMouse ? button.hoverColor : button.idleColor

        Behavior on color {
            ColorAnimation { duration: 80 }
        }

        Text {
            id: buttonLabel

            anchors.centerIn: parent
            text: button.label
            color: button.labelColor
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
            font.weight: button.labelWeight
        }

        MouseArea {
            id: buttonArea

            anchors.fill: parent
            hoverEnabled: true
            cursorShape: Qt.PointingHandCursor
            onClicked: button.clicked()
        }
    }

    anchors.fill: parent
    z: 300
    visible: false
    focus: root.visible

    onVisibleChanged: {
        if (!root.visible)
            return;
        root.dontAskAgain = false;
        root.forceActiveFocus();
        openAnimation.restart();
    }

    // Ahead of the window shortcuts: while the dialog is open, Esc and Return
    // are its own.
    Keys.onShortcutOverride: function (event) {
        event.accepted = event.key === Qt.Key_Escape || event.key === Qt.Key_Return
                || event.key === Qt.Key_Enter;
    }

    Keys.onPressed: function (event) {
        if (event.key === Qt.Key_Escape) {
            event.accepted = true;
            root.rejected();
        } else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
            event.accepted = true;
            root.accepted();
        }
    }

    MouseArea {
        objectName: "quitBackdrop"
        anchors.fill: parent
        onClicked: root.rejected()

        Rectangle {
            anchors.fill: parent
            color: "#72000000"
        }
    }

    Rectangle {
        id: card

        objectName: "quitCard"
        anchors.centerIn: parent
        // Wider only where the footer would not fit on one line.
        width: Math.max(AppTheme.px(380), footer.implicitWidth + 2 * AppTheme.px(24))
        height: content.implicitHeight + AppTheme.px(48)
        radius: AppTheme.px(12)
        color: "#F51C1E26"
        border.width: 1
        border.color: "#1AFFFFFF"

        ParallelAnimation {
            id: openAnimation

            NumberAnimation { target: card; property: "scale"; from: 0.92; to: 1.0; duration: 180; easing.type: Easing.OutBack }
            NumberAnimation { target: card; property: "opacity"; from: 0; to: 1; duration: 140; easing.type: Easing.OutQuad }
        }

        // Clicks on the card must not reach the backdrop.
        MouseArea {
            anchors.fill: parent
        }

        Column {
            id: content

            x: AppTheme.px(24)
            y: AppTheme.px(24)
            width: card.width - 2 * AppTheme.px(24)
            spacing: AppTheme.px(16)

            Row {
                spacing: AppTheme.px(12)

                Rectangle {
                    width: AppTheme.px(36)
                    height: AppTheme.px(36)
                    radius: AppTheme.px(9)
                    color: "#33F05D5D"

                    Rectangle {
                        anchors.centerIn: parent
                        width: AppTheme.px(18)
                        height: AppTheme.px(18)
                        radius: width / 2
                        color: "transparent"
                        border.width: 1.6
                        border.color: AppTheme.red

                        Text {
                            anchors.centerIn: parent
                            text: "!"
                            color: AppTheme.red
                            font.family: AppTheme.fontFamily
                            font.pixelSize: AppTheme.px(12)
                            font.bold: true
                        }
                    }
                }

                Column {
                    width: content.width - AppTheme.px(36) - AppTheme.px(12)
                    spacing: AppTheme.px(4)

                    Text {
                        text: qsTr("Quit Glimmora?")
                        color: AppTheme.text
                        font.family: AppTheme.fontFamily
                        font.pixelSize: AppTheme.px(15)
                        font.bold: true
                    }

                    Text {
                        width: parent.width
                        wrapMode: Text.WordWrap
                        lineHeight: 1.5
                        text: qsTr("The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.")
                        color: AppTheme.textDim
                        font.family: AppTheme.fontFamily
                        font.pixelSize: AppTheme.fontSizeCaption
                    }
                }
            }

            Rectangle {
                width: content.width
                height: AppTheme.px(38)
                radius: AppTheme.px(8)
                color: "#08FFFFFF"

                Row {
                    anchors.left: parent.left
                    anchors.leftMargin: AppTheme.px(12)
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: AppTheme.px(10)

                    Rectangle {
                        objectName: "quitCheckBox"
                        anchors.verticalCenter: parent.verticalCenter
                        width: AppTheme.px(16)
                        height: AppTheme.px(16)
                        radius: AppTheme.px(4)
                        color: root.dontAskAgain ? AppTheme.red : "#10FFFFFF"
                        border.width: root.dontAskAgain ? 0 : 1
                        border.color: AppTheme.border

                        Canvas {
                            id: tick

                            anchors.centerIn: parent
                            width: AppTheme.px(10)
                            height: AppTheme.px(8)
                            visible: root.dontAskAgain
                            onWidthChanged: tick.requestPaint()
                            onPaint: {
                                const ctx = tick.getContext("2d");
                                const lineWidth = AppTheme.px(1.8);
                                ctx.reset();
                                ctx.strokeStyle = "white";
                                ctx.lineWidth = lineWidth;
                                ctx.lineCap = "round";
                                ctx.lineJoin = "round";
                                ctx.beginPath();
                                ctx.moveTo(0, tick.height / 2);
                                ctx.lineTo(0.38 * tick.width, tick.height);
                                ctx.lineTo(tick.width, 0);
                                ctx.stroke();
                            }
                        }
                    }

                    Text {
                        anchors.verticalCenter: parent.verticalCenter
                        text: qsTr("Don't ask me again")
                        color: AppTheme.text
                        font.family: AppTheme.fontFamily
                        font.pixelSize: AppTheme.fontSizeBody
                    }
                }

                MouseArea {
                    objectName: "quitCheckRow"
                    anchors.fill: parent
                    cursorShape: Qt.PointingHandCursor
                    onClicked: root.dontAskAgain = !root.dontAskAgain
                }
            }

            Row {
                anchors.right: parent.right
                spacing: AppTheme.px(10)

                DialogButton {
                    objectName: "quitCancelButton"
                    label: qsTr("Cancel")
                    hoverColor: "#12FFFFFF"
                    pressedColor: "#20FFFFFF"
                    border.width: 1
                    border.color: AppTheme.borderHi
                    onClicked: root.rejected()
                }

                DialogButton {
                    objectName: "quitConfirmButton"
                    label: qsTr("Quit Glimmora")
                    labelColor: "white"
                    labelWeight: Font.DemiBold
                    idleColor: AppTheme.red
                    hoverColor: "#FF6A6A"
                    pressedColor: "#D74C4C"
                    onClicked: root.accepted()
                }
            }

            Text {
                id: footer

                objectName: "quitFooter"
                width: content.width
                horizontalAlignment: Text.AlignRight
                text: (root.quitShortcutText !== "" ? qsTr("triggered by %1").arg(root.quitShortcutText)
                                                    : qsTr("triggered by quit shortcut"))
                      + qsTr(" · Esc to cancel · Enter to confirm")
                color: AppTheme.textMute
                font.family: AppTheme.monoFamily
                font.pixelSize: AppTheme.px(10.5)
            }
        }
    }
}
