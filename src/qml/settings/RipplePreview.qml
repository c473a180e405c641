import QtQuick
import GlimmoraApp

// Three still ripples in the three click colours, as a sample of the look.
Rectangle {
    id: root

    height: AppTheme.px(100)
    radius: AppTheme.px(10)
    gradient: Gradient {
        GradientStop { position: 0; color: "#1F2733" }
        GradientStop { position: 1; color: "#11141A" }
    }

    Repeater {
        model: [
            { at: 0.2, color: settingsManager.leftClickColor, name: "L" },
            { at: 0.5, color: settingsManager.rightClickColor, name: "R" },
            { at: 0.8, color: settingsManager.middleClickColor, name: "M" }
        ]

        // Qt 6.4's linter does not see this document's ids inside a delegate.
        // qmllint disable unqualified
        delegate: Item {
            id: ripple

            required property var modelData

            x: root.width * ripple.modelData.at
            y: root.height / 2 - AppTheme.px(8)

            Repeater {
                model: [[40, 0.7], [50, 0.48], [60, 0.26]]

                delegate: Rectangle {
                    id: ring

                    required property var modelData

                    x: -ring.width / 2
                    y: -ring.height / 2
                    width: AppTheme.px(ring.modelData[0])
                    height: ring.width
                    radius: ring.width / 2
                    color: "transparent"
                    border.width: 1.5
                    border.color: ripple.modelData.color
                    opacity: ring.modelData[1]
                }
            }
            Rectangle {
                x: -AppTheme.px(5)
                y: -AppTheme.px(5)
                width: AppTheme.px(10)
                height: AppTheme.px(10)
                radius: AppTheme.px(5)
                color: ripple.modelData.color
            }
            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                y: AppTheme.px(34)
                text: ripple.modelData.name
                color: AppTheme.textDim
                font.family: AppTheme.monoFamily
                font.pixelSize: AppTheme.fontSizeCaption
            }
        }
        // qmllint enable unqualified
    }
}
