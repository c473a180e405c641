import QtQuick
import GlimmoraApp

// Below the pill: pause or resume, settings, about, quit.
Rectangle {
    id: root

    property bool open: false

    signal quitRequested()

    function shortcutFor(action) {
        const seq = settingsManager.hotkeysRevision >= 0 ? settingsManager.hotkeyForAction(action) : "";
        return AppTheme.isLinux ? seq.replace("Win", "Super") : seq;
    }

    function run(action) {
        root.open = false;
        action();
    }

    component MenuRow: Rectangle {
        id: row

        property string iconName
        property string label
        property string shortcut
        property bool danger: false

        signal activated()

        implicitWidth: rowLabel.x + rowLabel.implicitWidth + AppTheme.px(16) + rowShortcut.implicitWidth
                       + AppTheme.px(10)
        height: AppTheme.menuItemHeight
        radius: AppTheme.px(7)
        color: rowArea.containsMouse ? "#10FFFFFF" : "transparent"

        Behavior on color {
            ColorAnimation { duration: 60 }
        }

        Image {
            visible: row.iconName !== ""
            source: row.iconName !== "" ? "qrc:/qt/qml/GlimmoraApp/src/assets/icons/" + row.iconName : ""
            width: AppTheme.px(16)
            height: AppTheme.px(16)
            sourceSize.width: width
            sourceSize.height: height
            x: AppTheme.px(10)
            anchors.verticalCenter: parent.verticalCenter
            opacity: rowArea.containsMouse ? 1.0 : 0.7
        }

        Text {
            id: rowLabel

            x: row.iconName !== "" ? AppTheme.px(36) : AppTheme.px(10)
            anchors.verticalCenter: parent.verticalCenter
            text: row.label
            font.pixelSize: AppTheme.fontSizeBody
            font.family: AppTheme.fontFamily
            color: row.danger ? "#F05D5D" : rowArea.containsMouse ? AppTheme.text : AppTheme.textDim
        }

        Text {
            id: rowShortcut

            anchors.right: parent.right
            anchors.rightMargin: AppTheme.px(10)
            anchors.verticalCenter: parent.verticalCenter
            text: row.shortcut
            font.pixelSize: AppTheme.fontSizeCaption
            font.family: AppTheme.monoFamily
            color: row.danger ? "#80F05D5D" : AppTheme.textMute
        }

        MouseArea {
            id: rowArea
            anchors.fill: parent
            hoverEnabled: true
            cursorShape: Qt.PointingHandCursor
            onClicked: row.activated()
        }
    }

    // Wide enough for the longest label beside its shortcut, in any language.
    width: Math.max(AppTheme.px(230), rows.widestRow + AppTheme.px(12))
    height: rows.implicitHeight + AppTheme.px(12)
    radius: AppTheme.px(12)
    color: "#F012151A"
    border.width: 1
    border.color: AppTheme.borderHi
    opacity: root.open ? 1 : 0
    visible: root.opacity > 0
    transform: Scale {
        origin.x: root.width / 2
        origin.y: 0
        xScale: root.open ? 1.0 : 0.96
        yScale: root.open ? 1.0 : 0.96

        Behavior on xScale {
            NumberAnimation { duration: AppTheme.durationNormal; easing.type: Easing.OutBack }
        }
        Behavior on yScale {
            NumberAnimation { duration: AppTheme.durationNormal; easing.type: Easing.OutBack }
        }
    }

    Behavior on opacity {
        NumberAnimation { duration: AppTheme.durationNormal }
    }

    Connections {
        target: appController
        function onCurrentToolChanged() { root.open = false; }
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
    }

    Column {
        id: rows

        readonly property real widestRow: Math.max(pauseRow.implicitWidth, settingsRow.implicitWidth,
                                                    aboutRow.implicitWidth, quitRow.implicitWidth)

        anchors.fill: parent
        anchors.margins: AppTheme.px(6)

        MenuRow {
            id: pauseRow
            width: rows.width
            label: appController.overlayEnabled ? qsTr("Pause overlay") : qsTr("Resume overlay")
            iconName: appController.overlayEnabled ? "pause.svg" : "play.svg"
            shortcut: root.shortcutFor("toggleOverlay")
            onActivated: root.run(function () { appController.toggleOverlay(); })
        }
        MenuRow {
            id: settingsRow
            width: rows.width
            label: AppTheme.isLinux ? qsTr("Preferences…") : qsTr("Settings…")
            iconName: "settings.svg"
            shortcut: root.shortcutFor("openSettings")
            onActivated: root.run(function () { appController.showSettings(); })
        }
        MenuRow {
            id: aboutRow
            width: rows.width
            label: qsTr("About Glimmora")
            iconName: "info.svg"
            onActivated: root.run(function () { appController.showSettings(); })
        }
        Item {
            width: root.width - AppTheme.px(12)
            height: AppTheme.px(9)

            Rectangle {
                anchors.centerIn: parent
                width: parent.width - AppTheme.px(8)
                height: 1
                color: AppTheme.border
            }
        }
        MenuRow {
            id: quitRow
            width: rows.width
            label: qsTr("Quit Glimmora")
            danger: true
            iconName: "power.svg"
            shortcut: root.shortcutFor("quit")
            onActivated: root.run(function () { root.quitRequested(); })
        }
    }
}
