import QtQuick
import GlimmoraApp

// What the user sees of a still capture: a white flash on success and a toast
// with the saved file's name, or with the error text and a red dot.
Item {
    id: root

    readonly property string message: toastText.text
    readonly property bool isError: toast.isError

    // The manager's success text is compared in English, whatever the language.
    function messageFor(status: string, path: string): string {
        if (status !== "Capture saved")
            return status;
        let text = qsTr("Capture saved");
        if (path !== "") {
            const afterSlash = path.substring(path.lastIndexOf("/") + 1);
            text += "  ·  " + afterSlash.substring(afterSlash.lastIndexOf("\\") + 1);
        }
        return text;
    }

    function show(status: string, path: string) {
        toast.isError = status !== "Capture saved";
        toastText.text = root.messageFor(status, path);
        if (!toast.isError)
            flashAnimation.restart();
        toastAnimation.restart();
    }

    anchors.fill: parent

    Rectangle {
        id: flash

        objectName: "captureFlash"
        anchors.fill: parent
        color: "white"
        opacity: 0
        visible: flash.opacity > 0
    }

    Rectangle {
        id: toast

        property bool isError: false

        objectName: "captureToast"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: AppTheme.px(80)
        width: row.implicitWidth + 2 * AppTheme.px(14)
        height: row.implicitHeight + 2 * AppTheme.px(10)
        radius: AppTheme.px(20)
        color: "#E8141820"
        border.width: 1
        border.color: AppTheme.borderHi
        opacity: 0
        visible: toast.opacity > 0

        Row {
            id: row

            anchors.centerIn: parent
            spacing: AppTheme.px(8)

            Rectangle {
                objectName: "captureToastDot"
                anchors.verticalCenter: parent.verticalCenter
                width: AppTheme.px(7)
                height: AppTheme.px(7)
                radius: width / 2
                color: toast.isError ? "#F06060" : "#4ADE80"
            }

            Text {
                id: toastText

                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(toastText.implicitWidth, root.width - AppTheme.px(160))
                maximumLineCount: 1
                elide: Text.ElideMiddle
                color: AppTheme.text
                font.family: AppTheme.fontFamily
                font.pixelSize: AppTheme.fontSizeBody
            }
        }
    }

    SequentialAnimation {
        id: flashAnimation

        NumberAnimation { target: flash; property: "opacity"; to: 0.55; duration: 60; easing.type: Easing.OutQuad }
        NumberAnimation { target: flash; property: "opacity"; to: 0; duration: 220; easing.type: Easing.InQuad }
    }

    SequentialAnimation {
        id: toastAnimation

        NumberAnimation { target: toast; property: "opacity"; to: 1.0; duration: 160; easing.type: Easing.OutQuad }
        PauseAnimation { duration: 2800 }
        NumberAnimation { target: toast; property: "opacity"; to: 0; duration: 300; easing.type: Easing.InQuad }
    }
}
