import QtQuick
import QtTest
import GlimmoraApp

Item {
    id: scene

    width: 800
    height: 450

    ControlDisplayDropHighlight {
        id: highlight

        displayId: "mdl_B_2_1920x0"
    }

    TestCase {
        name: "ControlDisplayDropHighlight"

        function init() {
            displayManager.controlDisplayId = "mdl_A_1_0x0";
            appController.toolbarDragging = false;
            appController.toolbarMoving = false;
            appController.toolbarDragTargetDisplayId = "";
            appController.toolbarDragTargetEnabled = false;
        }

        function test_states_data() {
            return [
                { tag: "at rest nothing shows", moving: false, dragging: false, target: "mdl_B_2_1920x0",
                  enabled: true, control: "mdl_A_1_0x0", shown: false },
                { tag: "moving over another display hides this one", moving: true, dragging: false,
                  target: "mdl_A_1_0x0", enabled: true, control: "mdl_A_1_0x0", shown: false },
                { tag: "moving over an enabled display invites the drop", moving: true, dragging: false,
                  target: "mdl_B_2_1920x0", enabled: true, control: "mdl_A_1_0x0", shown: true, text: "Move controls here" },
                { tag: "a disabled display asks to be enabled", moving: false, dragging: true,
                  target: "mdl_B_2_1920x0", enabled: false, control: "mdl_A_1_0x0", shown: true, text: "Enable display first" },
                { tag: "the control display says so", moving: true, dragging: false,
                  target: "mdl_B_2_1920x0", enabled: true, control: "mdl_B_2_1920x0", shown: true, text: "Current control display" },
            ];
        }

        function test_states(data) {
            displayManager.controlDisplayId = data.control;
            appController.toolbarDragTargetDisplayId = data.target;
            appController.toolbarDragTargetEnabled = data.enabled;
            appController.toolbarMoving = data.moving;
            appController.toolbarDragging = data.dragging;
            compare(highlight.targeted, data.shown);
            tryCompare(highlight, "opacity", data.shown ? 1 : 0, 1000);
            compare(highlight.visible, data.shown);
            if (data.shown)
                compare(findChild(highlight, "dropCaption").text, data.text);
        }
    }
}
