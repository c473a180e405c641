import QtQuick
import GlimmoraApp

// Twelve more pen colours and the system colour dialog, opened by a right
// click on a swatch.
CtxMenu {
    id: root

    readonly property var extraColors: ["#FF5252", "#FF8A80", "#FFD740", "#FFFF8D", "#69F0AE", "#B9F6CA",
                                        "#40C4FF", "#80D8FF", "#EA80FC", "#E040FB", "#FF6D00", "#FF9E80"]

    Item {
        width: parent ? parent.width : 0
        height: AppTheme.px(66)

        Grid {
            anchors.centerIn: parent
            columns: 6
            spacing: AppTheme.px(6)

            Repeater {
                model: root.extraColors
                onItemAdded: function (index, item) { item.picked.connect(root.close); }

                delegate: Rectangle {
                    id: dot

                    required property string modelData

                    width: AppTheme.px(20)
                    height: width
                    radius: width / 2
                    color: dot.modelData
                    border.width: 1
                    border.color: appController.currentPenColor.toLowerCase() === dot.modelData.toLowerCase()
                                  ? AppTheme.accent : "#18FFFFFF"
                    scale: dotArea.containsMouse ? 1.15 : 1.0

                    Behavior on scale {
                        NumberAnimation { duration: 80 }
                    }

                    signal picked()

                    MouseArea {
                        id: dotArea
                        anchors.fill: parent
                        hoverEnabled: true
                        cursorShape: Qt.PointingHandCursor
                        onClicked: {
                            appController.setCurrentPenColor(dot.modelData);
                            dot.picked();
                        }
                    }
                }
            }
        }
    }

    Rectangle {
        width: parent ? parent.width - 12 : 0
        height: 1
        color: "#14FFFFFF"
        anchors.horizontalCenter: parent ? parent.horizontalCenter : undefined
    }

    CtxItem {
        label: qsTr("Custom colour...")
        onTriggered: {
            root.close();
            appController.openColorDialog();
        }
    }
}
