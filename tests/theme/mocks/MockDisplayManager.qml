import QtQuick

// Stand-in for DisplayManager: the control display, and every screen is "D1".
QtObject {
    id: root

    property string controlDisplayId: "mdl_A_1_0x0"
    property var displays: [{ id: "D1", enabled: true }, { id: "D2", enabled: true }]
    property string screenDisplayId: "D1"

    function displayIdForScreen(name: string): string {
        return root.screenDisplayId;
    }
}
