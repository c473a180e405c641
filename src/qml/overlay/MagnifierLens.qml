import QtQuick
import GlimmoraApp

// A round lens centred on the pointer, drawn in the HUD window. It takes no
// input: clicks pass through it to whatever lies below.
Item {
    id: root

    property bool active: false
    property real windowGlobalX: 0
    property real windowGlobalY: 0
    property real lensSize: AppTheme.px(208)
    property real zoomFactor: 2.0

    signal zoomChanged(real newZoom)

    // Only while on: a hidden item that moves still costs its window a frame.
    readonly property point cursor: root.active ? appController.mousePosition : Qt.point(0, 0)
    // Hidden over the controls, so that they stay reachable; that also stops
    // the grab, since the item's `active` follows `visible`.
    readonly property bool blockedByControls: appController.settingsVisible
                                              || root.pointIn(appController.toolbarRect)
                                              || root.pointIn(appController.helpButtonRect)
                                              || root.pointIn(appController.shortcutCardRect)
                                              || root.pointIn(appController.toastRect)
                                              || root.pointIn(appController.modalRect)

    function pointIn(rect) {
        return rect.width > 0 && rect.height > 0
                && root.cursor.x >= rect.x && root.cursor.x <= rect.x + rect.width
                && root.cursor.y >= rect.y && root.cursor.y <= rect.y + rect.height;
    }

    function zoomLabel(zoom) {
        return zoom.toFixed(1).replace(/\.0$/, "") + "x";
    }

    x: Math.round(root.cursor.x - root.windowGlobalX - root.lensSize / 2)
    y: Math.round(root.cursor.y - root.windowGlobalY - root.lensSize / 2)
    z: 52
    width: root.lensSize
    height: root.lensSize
    enabled: false
    visible: root.active && !root.blockedByControls
    opacity: root.visible ? 1 : 0
    scale: root.visible ? 1.0 : 0.94

    Behavior on opacity {
        NumberAnimation { duration: AppTheme.durationNormal; easing.type: Easing.OutQuad }
    }
    Behavior on scale {
        NumberAnimation { duration: AppTheme.durationNormal; easing.type: Easing.OutCubic }
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: function (event) {
            const step = event.angleDelta.y > 0 ? 0.25 : -0.25;
            const next = Math.max(1.25, Math.min(4.0, root.zoomFactor + step));
            if (next !== root.zoomFactor)
                root.zoomChanged(next);
        }
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: -AppTheme.px(4)
        radius: width / 2
        color: "transparent"
        border.color: "#10FFFFFF"
        border.width: AppTheme.px(8)
    }

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: "#101418"
        border.color: "#4CFFFFFF"
        border.width: AppTheme.px(1.5)
        layer.enabled: true
    }

    MagnifierLensItem {
        id: lensItem
        objectName: "magnifierLensItem"
        anchors.fill: parent
        anchors.margins: AppTheme.px(3)
        active: root.visible
        zoomFactor: root.zoomFactor
    }

    Rectangle {
        anchors.fill: lensItem
        radius: width / 2
        color: "transparent"
        border.color: "#18FFFFFF"
        border.width: AppTheme.px(1)
    }

    Rectangle {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.rightMargin: AppTheme.px(20)
        anchors.bottomMargin: AppTheme.px(18)
        height: AppTheme.px(22)
        width: zoomText.implicitWidth + AppTheme.px(14)
        radius: AppTheme.px(7)
        color: "#A0000000"
        border.color: "#26FFFFFF"
        border.width: AppTheme.px(1)

        Text {
            id: zoomText
            anchors.centerIn: parent
            text: root.zoomLabel(root.zoomFactor)
            color: "white"
            font.pixelSize: AppTheme.px(11)
            font.family: AppTheme.monoFamily
            font.weight: Font.DemiBold
        }
    }
}
