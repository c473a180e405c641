import QtQuick
import GlimmoraApp

// The keys just pressed, as key caps, with the command's name when they are
// one. Shown on each keystroke report, hidden keystrokeFadeMs later; a new
// report, also of the same keys, keeps it up. The creator places it.
Item {
    id: root

    // What the card shows now: the caps and the command's label, if any.
    property var keys: []
    property string actionLabel: ""

    readonly property var commandLabels: [
        ["toggleOverlay", qsTr("Pause")],
        ["openSettings", qsTr("Settings")],
        ["cursor", qsTr("Cursor")],
        ["spotlight", qsTr("Spotlight")],
        ["pen", qsTr("Pen")],
        ["arrow", qsTr("Arrow")],
        ["rectangle", qsTr("Rect")],
        ["circle", qsTr("Ellipse")],
        ["highlighter", qsTr("Highlight")],
        ["eraser", qsTr("Eraser")],
        ["exitToCursor", qsTr("Cursor")],
        ["undo", qsTr("Undo")],
        ["redo", qsTr("Redo")],
        ["clear", qsTr("Clear")],
        ["quit", qsTr("Quit")]
    ]

    // The label of the first action in the table bound to exactly this text.
    function commandLabel(combo: string): string {
        // Read so that a binding through this function follows map changes.
        void settingsManager.hotkeysRevision;
        for (let i = 0; i < root.commandLabels.length; ++i) {
            if (settingsManager.hotkeyForAction(root.commandLabels[i][0]) === combo)
                return root.commandLabels[i][1];
        }
        return "";
    }

    function show(combo: string) {
        if (!settingsManager.keystrokesEnabled) {
            root.hide();
            return;
        }
        // The text is withdrawn when a lock begins: the caps go at once, not
        // by the fade.
        if (combo === "") {
            root.keys = [];
            root.actionLabel = "";
            root.hide();
            return;
        }
        root.keys = combo.split("+");
        root.actionLabel = root.commandLabel(combo);
        root.state = "visible";
        hideTimer.restart();
    }

    function hide() {
        hideTimer.stop();
        root.state = "hidden";
    }

    width: content.implicitWidth
    height: content.implicitHeight
    opacity: 0
    scale: 0.92
    state: "hidden"

    states: [
        State {
            name: "hidden"
            PropertyChanges {
                root.opacity: 0
                root.scale: 0.92
            }
        },
        State {
            name: "visible"
            PropertyChanges {
                root.opacity: 1
                root.scale: 1
            }
        }
    ]

    transitions: [
        Transition {
            to: "visible"
            ParallelAnimation {
                NumberAnimation {
                    property: "opacity"
                    duration: 140
                    easing.type: Easing.OutQuad
                }
                NumberAnimation {
                    property: "scale"
                    duration: 180
                    easing.type: Easing.OutBack
                }
            }
        },
        Transition {
            to: "hidden"
            NumberAnimation {
                properties: "opacity,scale"
                duration: 220
                easing.type: Easing.InQuad
            }
        }
    ]

    Connections {
        target: appController

        function onKeystrokeChanged() {
            root.show(appController.lastKeystroke);
        }
    }

    Connections {
        target: settingsManager

        function onKeystrokesEnabledChanged() {
            if (!settingsManager.keystrokesEnabled)
                root.hide();
        }
    }

    Timer {
        id: hideTimer

        interval: settingsManager.keystrokeFadeMs
        onTriggered: root.state = "hidden"
    }

    component KeyCap: Rectangle {
        id: cap

        required property string label

        height: Math.max(AppTheme.keyCapMinHeight, capText.implicitHeight + AppTheme.px(16))
        width: Math.max(capText.implicitWidth + AppTheme.px(24), cap.height)
        radius: AppTheme.cornerSmall
        color: "#30000000"
        border.width: 1
        border.color: "#60FFFFFF"

        Text {
            id: capText

            anchors.centerIn: parent
            text: cap.label
            color: "white"
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.keyCapFontSize
            font.weight: Font.DemiBold
        }
    }

    Row {
        id: content

        objectName: "content"
        spacing: AppTheme.px(10)

        Row {
            objectName: "keyCaps"
            spacing: AppTheme.px(6)

            Repeater {
                model: root.keys

                delegate: Row {
                    id: capWithSeparator

                    required property string modelData
                    required property int index

                    spacing: AppTheme.px(6)

                    Text {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: capWithSeparator.index > 0
                        text: "+"
                        color: "#70FFFFFF"
                        font.pixelSize: AppTheme.fontSizeTitle
                    }

                    KeyCap {
                        objectName: "keyCap"
                        label: capWithSeparator.modelData
                    }
                }
            }
        }

        Text {
            objectName: "actionLabel"
            anchors.verticalCenter: parent.verticalCenter
            visible: root.actionLabel !== ""
            text: root.actionLabel
            color: "#EAF0F8"
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
            font.weight: Font.DemiBold
        }
    }
}
