import QtQuick
import GlimmoraApp

// The right side of a hotkey row: the sequence as key caps, a "conflict"
// pill while the system refuses the combination, and "Edit". Re-read when the
// map or the registrations change.
Row {
    id: root

    required property string action
    // The stored text turned into what the look shows.
    property var readSequence: sequence => sequence
    property color capFill: AppTheme.winItemBg
    property color capLine: AppTheme.winBorder
    property color textColor: AppTheme.winText
    property color conflictText: AppTheme.red
    property color conflictFill: "#26F05D5D"
    readonly property bool conflict: typeof hotkeyManager !== "undefined" && hotkeyManager !== null
                                     && hotkeyManager.hotkeyConflictRevision >= 0
                                     && hotkeyManager.hotkeyHasConflict(root.action)

    signal editRequested()

    anchors.right: parent.right
    anchors.verticalCenter: parent.verticalCenter
    spacing: AppTheme.px(8)

    Rectangle {
        objectName: "conflict-" + root.action
        anchors.verticalCenter: parent.verticalCenter
        visible: root.conflict
        width: pillText.implicitWidth + AppTheme.px(14)
        height: AppTheme.px(20)
        radius: height / 2
        color: root.conflictFill

        Text {
            id: pillText

            anchors.centerIn: parent
            text: qsTranslate("SettingsWindow", "conflict")
            color: root.conflictText
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeCaption
            font.weight: Font.Medium
        }
    }

    KeyChips {
        objectName: "keys-" + root.action
        anchors.verticalCenter: parent.verticalCenter
        sequence: settingsManager.hotkeysRevision >= 0
                  ? root.readSequence(settingsManager.hotkeyForAction(root.action)) : ""
        fillColor: root.capFill
        lineColor: root.capLine
        textColor: root.textColor
    }

    PanelButton {
        objectName: "edit-" + root.action
        anchors.verticalCenter: parent.verticalCenter
        height: AppTheme.px(26)
        text: qsTranslate("SettingsWindow", "Edit")
        textColor: root.textColor
        fillColor: root.capFill
        lineColor: root.capLine
        onClicked: root.editRequested()
    }
}
