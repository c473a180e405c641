import QtQuick
import GlimmoraApp

// The header bar of the Linux look: window dots at the left, of which the
// first closes the panel, and the title. The bar drags the panel within its
// parent, except over the dots and the last strip at the right.
Rectangle {
    id: root

    required property Item panel

    height: AppTheme.px(46)
    color: AppTheme.linuxHeaderBg

    MouseArea {
        x: AppTheme.px(60)
        width: root.width - AppTheme.px(60) - AppTheme.px(20)
        height: root.height
        drag.target: root.panel
        drag.minimumX: 0
        drag.minimumY: 0
        drag.maximumX: root.panel.parent ? root.panel.parent.width - root.panel.width : 0
        drag.maximumY: root.panel.parent ? root.panel.parent.height - root.panel.height : 0
    }

    Row {
        x: AppTheme.px(14)
        anchors.verticalCenter: parent.verticalCenter
        spacing: AppTheme.px(8)

        Repeater {
            model: [["#FF7565", "#FF5A47"], ["#BEBEBE", "#A0A0A0"], ["#BEBEBE", "#A0A0A0"]]
            delegate: Rectangle {
                id: dot

                required property var modelData
                required property int index

                objectName: index === 0 ? "linuxCloseDot" : ""
                width: AppTheme.px(12)
                height: AppTheme.px(12)
                radius: width / 2
                color: dotArea.containsMouse ? dot.modelData[1] : dot.modelData[0]

                MouseArea {
                    id: dotArea

                    anchors.fill: parent
                    hoverEnabled: true
                    // Only the first dot acts; the others are drawn for the look.
                    onClicked: {
                        if (dot.index === 0)
                            appController.hideSettings();
                    }
                }
            }
        }
    }

    Text {
        anchors.centerIn: parent
        text: qsTr("Glimmora Preferences")
        color: AppTheme.linuxText
        font.family: AppTheme.fontFamily
        font.pixelSize: AppTheme.px(14)
        font.weight: Font.DemiBold
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: AppTheme.linuxHeaderBorder
    }
}
