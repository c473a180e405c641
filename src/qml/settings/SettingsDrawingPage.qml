import QtQuick
import GlimmoraApp

// The Windows look's drawing page: brush defaults and annotation behaviour.
SettingsPage {
    id: root

    readonly property var tools: ["pen", "arrow", "rectangle", "circle", "highlighter"]

    title: qsTranslate("SettingsWindow", "Drawing")
    subtitle: qsTranslate("SettingsWindow", "Brush defaults and annotation behaviour.")

    SettingsCard {
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Default tool")
            subText: qsTranslate("SettingsWindow", "Active tool on overlay open")

            SettingsChoice {
                options: [qsTranslate("SettingsWindow", "Pen"), qsTranslate("SettingsWindow", "Arrow"),
                    qsTranslate("SettingsWindow", "Rect"), qsTranslate("SettingsWindow", "Ellipse"),
                    qsTranslate("SettingsWindow", "Highlight")]
                activeIndex: root.tools.indexOf(settingsManager.defaultDrawingTool)
                onPicked: index => {
                    settingsManager.setDefaultDrawingTool(root.tools[index]);
                    appController.setTool(root.tools[index]);
                }
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Default color")
            subText: qsTranslate("SettingsWindow", "Starting pen color")

            ColorDots {
                colors: [AppTheme.red, AppTheme.yellow, AppTheme.green, AppTheme.blue, AppTheme.magenta, AppTheme.winText]
                current: settingsManager.defaultDrawingColor
                ringColor: "white"
                onPicked: color => {
                    settingsManager.setDefaultDrawingColor(color);
                    appController.setCurrentPenColor(color);
                }
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Brush size")
            subText: qsTranslate("SettingsWindow", "Default stroke width (1-32 px)")

            SettingsSlider {
                from: 1
                to: 32
                value: settingsManager.brushSize
                readout: settingsManager.brushSize + " px"
                onMoved: value => settingsManager.setBrushSize(Math.round(value))
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Stroke smoothing")
            subText: qsTranslate("SettingsWindow", "Curve interpolation level")

            SettingsChoice {
                options: [qsTranslate("SettingsWindow", "None"), qsTranslate("SettingsWindow", "Low"),
                    qsTranslate("SettingsWindow", "Med"), qsTranslate("SettingsWindow", "High")]
                activeIndex: settingsManager.strokeSmoothing
                onPicked: index => settingsManager.setStrokeSmoothing(index)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Show toolbar while drawing")
            subText: qsTranslate("SettingsWindow", "Auto-hide when disabled")

            SettingsSwitch {
                checked: settingsManager.showToolbarWhileDrawing
                onToggled: checked => settingsManager.setShowToolbarWhileDrawing(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Enable undo / redo")
            subText: qsTranslate("SettingsWindow", "Keep stroke history in memory")

            SettingsSwitch {
                checked: settingsManager.undoRedoEnabled
                onToggled: checked => settingsManager.setUndoRedoEnabled(checked)
            }
        }
        SettingsRow {
            label: qsTranslate("SettingsWindow", "Pressure sensitive")
            subText: qsTranslate("SettingsWindow", "Vary width with stylus pressure")

            SettingsSwitch {
                checked: settingsManager.pressureSensitive
                onToggled: checked => settingsManager.setPressureSensitive(checked)
            }
        }
        SettingsRow {
            last: true
            label: qsTranslate("SettingsWindow", "Clear on pause")
            subText: qsTranslate("SettingsWindow", "Wipe canvas when overlay pauses")

            SettingsSwitch {
                checked: settingsManager.clearOnPause
                onToggled: checked => settingsManager.setClearOnPause(checked)
            }
        }
    }
}
