import QtQuick
import GlimmoraApp

// The Windows look's title bar: the logo and name at the left, window
// buttons at the right of which only "✕" acts. It drags the panel within its
// parent, except over the last button.
Item {
    id: root

    required property Item panel

    height: AppTheme.px(38)

    MouseArea {
        width: root.width - AppTheme.px(40)
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

        Canvas {
            id: logo

            width: AppTheme.px(18)
            height: AppTheme.px(18)
            anchors.verticalCenter: parent.verticalCenter
            onWidthChanged: logo.requestPaint()
            onPaint: {
                const ctx = logo.getContext("2d");
                ctx.reset();
                // Drawn on an 18-unit grid.
                ctx.scale(logo.width / 18, logo.height / 18);
                const glow = ctx.createRadialGradient(9, 9, 0, 9, 9, 8);
                glow.addColorStop(0, "#FFD9A8");
                glow.addColorStop(0.55, "#F4A65A");
                glow.addColorStop(1, "#D8843A");
                const disc = (radius, fill) => {
                    ctx.beginPath();
                    ctx.arc(9, 9, radius, 0, 2 * Math.PI);
                    ctx.fillStyle = fill;
                    ctx.fill();
                };
                disc(8, glow);
                disc(3.8, "#0E1014");
                disc(1.6, "#F4A65A");
            }
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: "Glimmora"
            color: AppTheme.winText
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
            font.weight: Font.DemiBold
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: qsTranslate("SettingsWindow", "· Settings")
            color: AppTheme.winTextMute
            font.family: AppTheme.fontFamily
            font.pixelSize: AppTheme.fontSizeBody
        }
    }

    Row {
        anchors.right: parent.right
        height: parent.height

        // Drawn like the system's buttons; minimise and maximise do nothing here.
        Repeater {
            model: ["—", "□"]

            // Qt 6.4's linter does not see this document's ids inside a delegate.
            // qmllint disable unqualified
            delegate: Item {
                required property string modelData

                width: AppTheme.px(40)
                height: root.height

                Text {
                    anchors.centerIn: parent
                    text: parent.modelData
                    color: AppTheme.winIsDark ? "#30FFFFFF" : "#30000000"
                    font.pixelSize: AppTheme.fontSizeBody
                }
            }
            // qmllint enable unqualified
        }
        Rectangle {
            objectName: "settingsCloseButton"
            width: AppTheme.px(40)
            height: root.height
            color: closeArea.containsMouse ? "#C42B1C" : "transparent"

            Text {
                anchors.centerIn: parent
                text: "✕"
                color: closeArea.containsMouse ? "white" : AppTheme.winText
                font.pixelSize: AppTheme.fontSizeBody
            }
            MouseArea {
                id: closeArea

                anchors.fill: parent
                hoverEnabled: true
                onClicked: appController.hideSettings()
            }
        }
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: AppTheme.winLine
    }
}
