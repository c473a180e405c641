import QtQuick
import GlimmoraApp

// The Linux look's second tab: brush defaults, click ripples and keystrokes.
PanelPage {
    id: root

    readonly property var tools: ["pen", "arrow", "rectangle", "circle", "highlighter"]

    margins: AppTheme.px(20)
    spacing: AppTheme.px(18)

    AdwGroup {
        title: qsTr("Drawing")

        AdwRow {
            first: true
            label: qsTr("Default tool")
            subtitle: qsTr("Active tool on overlay open")

            AdwChoice {
                options: [qsTr("Pen"), qsTr("Arrow"), qsTr("Rect"), qsTr("Ellipse"), qsTr("Highlight")]
                activeIndex: root.tools.indexOf(settingsManager.defaultDrawingTool)
                onPicked: index => {
                    settingsManager.setDefaultDrawingTool(root.tools[index]);
                    appController.setTool(root.tools[index]);
                }
            }
        }
        AdwRow {
            label: qsTr("Default color")
            subtitle: qsTr("Starting pen color")

            ColorDots {
                colors: [AppTheme.red, AppTheme.yellow, AppTheme.green, AppTheme.blue, AppTheme.magenta, "#ECEEF2"]
                current: settingsManager.defaultDrawingColor
                onPicked: color => {
                    settingsManager.setDefaultDrawingColor(color);
                    appController.setCurrentPenColor(color);
                }
            }
        }
        AdwRow {
            label: qsTr("Brush size")
            subtitle: qsTr("Default stroke width (1-32 px)")

            AdwSlider {
                from: 1
                to: 32
                value: settingsManager.brushSize
                readout: settingsManager.brushSize + " px"
                onMoved: value => settingsManager.setBrushSize(Math.round(value))
            }
        }
        AdwRow {
            label: qsTr("Stroke smoothing")
            subtitle: qsTr("Curve interpolation level")

            AdwChoice {
                options: [qsTr("None"), qsTr("Low"), qsTr("Med"), qsTr("High")]
                activeIndex: settingsManager.strokeSmoothing
                onPicked: index => settingsManager.setStrokeSmoothing(index)
            }
        }
        AdwRow {
            label: qsTr("Show toolbar while drawing")
            subtitle: qsTr("Auto-hide when disabled")

            AdwSwitch {
                checked: settingsManager.showToolbarWhileDrawing
                onToggled: checked => settingsManager.setShowToolbarWhileDrawing(checked)
            }
        }
        AdwRow {
            label: qsTr("Enable undo / redo")
            subtitle: qsTr("Keep stroke history in memory")

            AdwSwitch {
                checked: settingsManager.undoRedoEnabled
                onToggled: checked => settingsManager.setUndoRedoEnabled(checked)
            }
        }
        AdwRow {
            label: qsTr("Clear on pause")
            subtitle: qsTr("Wipe canvas when overlay pauses")

            AdwSwitch {
                checked: settingsManager.clearOnPause
                onToggled: checked => settingsManager.setClearOnPause(checked)
            }
        }
    }

    AdwGroup {
        title: qsTr("Click Effects")

        AdwRow {
            first: true
            label: qsTr("Visualize clicks")
            subtitle: qsTr("Master toggle for ripple effects.")

            AdwSwitch {
                checked: settingsManager.clickRippleEnabled
                onToggled: checked => settingsManager.setClickRippleEnabled(checked)
            }
        }
        AdwRow {
            label: qsTr("Ripple size")

            AdwSlider {
                from: 20
                to: 120
                value: settingsManager.rippleSize
                readout: settingsManager.rippleSize + " px"
                onMoved: value => settingsManager.setRippleSize(Math.round(value))
            }
        }
        AdwRow {
            label: qsTr("Duration")

            AdwSlider {
                from: 200
                to: 1500
                value: settingsManager.rippleDuration
                readout: settingsManager.rippleDuration + " ms"
                onMoved: value => settingsManager.setRippleDuration(Math.round(value))
            }
        }
        AdwRow {
            label: qsTr("Show during screen recording")
            subtitle: qsTr("Detected via OS capture API.")

            AdwSwitch {
                checked: settingsManager.showClicksDuringRecording
                onToggled: checked => settingsManager.setShowClicksDuringRecording(checked)
            }
        }
    }

    LinuxKeystrokesGroup {}
}
