import QtQuick
import GlimmoraApp

ToolbarMenu {
    id: root

    readonly property string iconBase: "qrc:/qt/qml/GlimmoraApp/src/assets/icons/"

    CtxItem {
        width: root.panelWidth - AppTheme.px(12)
        label: qsTr("Rectangle recording")
        iconSource: root.iconBase + "record-rectangle.svg"
        disabled: true
    }
    CtxItem {
        width: root.panelWidth - AppTheme.px(12)
        label: qsTr("Window recording")
        iconSource: root.iconBase + "record-window.svg"
        disabled: true
    }
    Item {
        width: root.panelWidth - AppTheme.px(12)
        height: AppTheme.px(9)

        Rectangle {
            anchors.centerIn: parent
            width: parent.width - 12
            height: 1
            color: "#14FFFFFF"
        }
    }
    CtxItem {
        width: root.panelWidth - AppTheme.px(12)
        label: qsTr("Record display")
        iconSource: root.iconBase + "record-display.svg"
        onTriggered: {
            root.open = false;
            appController.startRecording();
        }
    }
}
