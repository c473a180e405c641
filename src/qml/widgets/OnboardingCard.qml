import QtQuick
import GlimmoraApp
import "KeyText.js" as KeyText

// The welcome card of a first start. It covers the whole HUD, so that nothing
// behind it takes a click, until either button marks the first run as done.
Item {
    id: root

    readonly property var rows: [
        { keys: root.keyText("toggleOverlay"), label: qsTr("Toggle overlay on / off") },
        { keys: "Alt 1–8", label: qsTr("Switch tools") },
        { keys: root.keyText("undo"), label: qsTr("Undo last stroke") },
        { keys: "Esc", label: qsTr("Exit drawing mode") },
        { keys: "?", label: qsTr("Hold for all shortcuts") }
    ]

    function keyText(action: string): string {
        void settingsManager.hotkeysRevision;
        return KeyText.chip(settingsManager.hotkeyForAction(action), Qt.platform.os);
    }

    component CardButton: Rectangle {
        id: button

        property string label
        property color labelColor: AppTheme.text
        property color idleColor: "transparent"
        property color hoverColor: button.idleColor
        property color pressedColor
        property int extraWidth
        property int labelWeight: Font.Normal

        width: buttonLabel.implicitWidth + button.extraWidth
        height: AppTheme.px(32)
        radius: AppTheme.px(7)
        color: buttonArea.pressed ? button.pressedColor : buttonArea.containsMouse ? button.hoverColor : button.idleColor

        Text {
            id: buttonLabel

            anchors.centerIn: parent
            text: button.label
            color: button.labelColor
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.px(12.5)
            font.weight: button.labelWeight
        }

        // Both buttons close the card for good.
        MouseArea {
            id: buttonArea

            anchors.fill: parent
            hoverEnabled: true
            cursorShape: Qt.PointingHandCursor
            onClicked: settingsManager.setFirstRunDone(true)
        }
    }

    anchors.fill: parent
    z: 150
    visible: !settingsManager.firstRunDone

    Component.onCompleted: {
        if (root.visible)
            openAnimation.start();
    }

    // Swallows every click: the card must be answered first.
    MouseArea {
        objectName: "onboardingBackdrop"
        anchors.fill: parent

        Rectangle {
            anchors.fill: parent
            color: "#70000000"
        }
    }

    Rectangle {
        id: card

        objectName: "onboardingCard"
        anchors.centerIn: parent
        width: Math.min(AppTheme.px(340), root.width - AppTheme.px(40))
        height: content.implicitHeight + AppTheme.px(40)
        radius: AppTheme.px(14)
        color: "#EB14171C"
        border.width: 1
        border.color: AppTheme.borderHi

        ParallelAnimation {
            id: openAnimation

            NumberAnimation { target: card; property: "scale"; from: 0.92; to: 1.0; duration: 220; easing.type: Easing.OutBack }
            NumberAnimation { target: card; property: "opacity"; from: 0; to: 1; duration: 160; easing.type: Easing.OutQuad }
        }

        Column {
            id: content

            x: AppTheme.px(20)
            y: AppTheme.px(20)
            width: card.width - 2 * AppTheme.px(20)
            spacing: AppTheme.px(10)

            Row {
                spacing: AppTheme.px(10)

                Canvas {
                    id: logo

                    width: AppTheme.px(22)
                    height: AppTheme.px(22)
                    anchors.verticalCenter: parent.verticalCenter
                    onWidthChanged: logo.requestPaint()
                    onPaint: {
                        const ctx = logo.getContext("2d");
                        const c = logo.width / 2;
                        const outer = c - AppTheme.px(0.5);
                        const inner = AppTheme.px(5.5);
                        ctx.reset();
                        const body = ctx.createRadialGradient(c, c, 0, c, c, outer);
                        body.addColorStop(0, "#F4A65A");
                        body.addColorStop(1, "#D8843A");
                        ctx.fillStyle = body;
                        ctx.beginPath();
                        ctx.arc(c, c, outer, 0, 2 * Math.PI);
                        ctx.fill();
                        ctx.fillStyle = "#1A1208";
                        ctx.beginPath();
                        ctx.arc(c, c, inner, 0, 2 * Math.PI);
                        ctx.fill();
                        const glow = ctx.createRadialGradient(c, c, 0, c, c, inner);
                        glow.addColorStop(0, Qt.rgba(1, 1, 1, 0.9));
                        glow.addColorStop(1, "transparent");
                        ctx.fillStyle = glow;
                        ctx.beginPath();
                        ctx.arc(c, c, inner, 0, 2 * Math.PI);
                        ctx.fill();
                    }
                }

                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Welcome to Glimmora")
                    color: AppTheme.text
                    font.family: AppTheme.fontFamily
                    font.pixelSize: AppTheme.px(14)
                    font.weight: Font.DemiBold
                }
            }

            Text {
                width: content.width
                wrapMode: Text.WordWrap
                lineHeight: 1.5
                text: qsTr("Six keys is all you need. The overlay stays out of your way until you call it.")
                color: AppTheme.textDim
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.px(12.5)
            }

            Column {
                width: content.width

                Repeater {
                    model: root.rows

                    Item {
                        id: row

                        required property var modelData

                        width: row.parent.width
                        height: AppTheme.px(22) + 2 * AppTheme.px(4)

                        Rectangle {
                            id: chip

                            objectName: "onboardingKey"
                            readonly property string keys: row.modelData.keys

                            anchors.verticalCenter: parent.verticalCenter
                            width: chipText.implicitWidth + AppTheme.px(12)
                            height: AppTheme.px(22)
                            radius: AppTheme.px(5)
                            color: "#18FFFFFF"
                            border.width: 1
                            border.color: "#40FFFFFF"

                            Text {
                                id: chipText

                                anchors.centerIn: parent
                                text: chip.keys
                                color: AppTheme.text
                                font.family: AppTheme.monoFamily
                                font.pixelSize: AppTheme.px(11)
                            }
                        }

                        Text {
                            anchors.left: chip.right
                            anchors.leftMargin: AppTheme.px(12)
                            anchors.right: parent.right
                            anchors.verticalCenter: parent.verticalCenter
                            text: row.modelData.label
                            color: AppTheme.textDim
                            font.family: AppTheme.fontFamily
                            font.pixelSize: AppTheme.px(12)
                            elide: Text.ElideRight
                        }
                    }
                }
            }

            Item {
                width: content.width
                height: AppTheme.px(18) + AppTheme.px(32) - content.spacing

                Row {
                    anchors.right: parent.right
                    anchors.bottom: parent.bottom
                    layoutDirection: Qt.RightToLeft
                    spacing: AppTheme.px(8)

                    CardButton {
                        objectName: "onboardingGotIt"
                        label: qsTr("Got it")
                        labelColor: "#1A1208"
                        labelWeight: Font.DemiBold
                        idleColor: AppTheme.accent
                        pressedColor: AppTheme.accentDeep
                        extraWidth: AppTheme.px(28)
                    }

                    CardButton {
                        objectName: "onboardingDontShow"
                        label: qsTr("Don't show again")
                        hoverColor: "#0EFFFFFF"
                        pressedColor: "#18FFFFFF"
                        extraWidth: AppTheme.px(24)
                    }
                }
            }
        }
    }
}
