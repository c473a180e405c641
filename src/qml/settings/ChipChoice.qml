import QtQuick
import GlimmoraApp

// A row of chips of which at most one is lit; the owner says which one from
// the setting and writes the setting when one is picked.
Row {
    id: root

    property var options: []
    property int activeIndex: -1
    property int chipWidth: 0
    property color activeColor: AppTheme.accent
    property color activeTextColor: "#1A1208"
    property color fillColor: AppTheme.winItemBg
    property color lineColor: AppTheme.winBorder
    property color textColor: AppTheme.winText
    // Indexes shown dimmed that take no click.
    property var deadIndexes: []

    signal picked(int index)

    spacing: AppTheme.px(6)

    Repeater {
        model: root.options

        // Qt 6.4's linter does not see this document's ids inside a delegate.
        // qmllint disable unqualified
        delegate: PanelChip {
            required property string modelData
            required property int index

            objectName: "chip-" + modelData
            text: modelData
            minimumWidth: root.chipWidth
            active: index === root.activeIndex
            interactive: root.deadIndexes.indexOf(index) < 0
            activeColor: root.activeColor
            activeTextColor: root.activeTextColor
            fillColor: root.fillColor
            lineColor: root.lineColor
            textColor: root.textColor
            onClicked: root.picked(index)
        }
        // qmllint enable unqualified
    }
}
