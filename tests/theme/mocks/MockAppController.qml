import QtQuick

// Stand-in for AppController: the state the chrome and the drawing layers
// read, the rectangles they write, and a record of the commands they send.
QtObject {
    id: root

    property bool captureInProgress: false
    property bool toolbarVisible: true
    property bool recordingAvailable: false
    property int recordingState: 0
    property int recordingElapsed: 0
    property bool regionSelecting: false
    property bool settingsVisible: false
    property bool toolbarDragging: false
    property bool toolbarMoving: false
    property string toolbarDragTargetDisplayId: ""
    property bool toolbarDragTargetEnabled: false
    property string captureStatus: ""
    property string captureLastPath: ""
    property rect toolbarRect
    property rect helpButtonRect
    property rect shortcutCardRect
    property rect statusBarRect
    property rect controlsRevealRect
    property rect toastRect
    property rect modalRect
    property point cursor: Qt.point(-1000, -1000)
    property int hideSettingsCalls: 0
    property bool overlayEnabled: true
    property string currentTool: "cursor"
    property string currentPenColor: "#FF5252"
    property bool modalActive: false
    property int toggleOverlayCalls: 0
    // The arguments of each confirmAndQuit call.
    property var quitConfirmations: []
    // The commands the drawing layers' context menu sent, in order.
    property var calls: []

    signal mouseClicked(point pos, int buttons)
    signal quitRequested()
    signal settingsPageRequested(string pageId)

    function cursorPos(): point {
        return root.cursor;
    }

    function setTool(tool: string) {
        root.calls = root.calls.concat(["setTool:" + tool]);
    }

    function showSettings() {
        root.calls = root.calls.concat(["showSettings"]);
    }

    function toggleOverlay() {
        root.calls = root.calls.concat(["toggleOverlay"]);
        root.toggleOverlayCalls += 1;
        root.overlayEnabled = !root.overlayEnabled;
    }

    function setModalActive(active: bool) {
        root.modalActive = active;
    }

    function confirmAndQuit(dontAskAgain: bool) {
        root.quitConfirmations = root.quitConfirmations.concat([dontAskAgain]);
    }

    function hideSettings() {
        root.hideSettingsCalls += 1;
        root.settingsVisible = false;
    }
}
