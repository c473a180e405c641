import QtQuick

// Stand-in for DisplayManager: every screen is the display "D1".
QtObject {
    id: root

    property var displays: [{ id: "D1", enabled: true }, { id: "D2", enabled: true }]
    property string screenDisplayId: "D1"

    function displayIdForScreen(name: string): string {
        return root.screenDisplayId;
    }
}
