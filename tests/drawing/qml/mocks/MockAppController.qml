import QtQuick

// Stand-in for AppController: the tool and colour the layers read, and a
// record of the commands the context menu sends.
QtObject {
    id: root

    property string currentTool: "pen"
    property string currentPenColor: "#FF5252"
    property var calls: []

    function setTool(tool: string) {
        root.calls = root.calls.concat(["setTool:" + tool]);
    }

    function toggleOverlay() {
        root.calls = root.calls.concat(["toggleOverlay"]);
    }

    function showSettings() {
        root.calls = root.calls.concat(["showSettings"]);
    }
}
