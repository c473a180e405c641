import QtQuick

// Stand-in for DisplayManager: only the choice of control display.
QtObject {
    property string controlDisplayId: "mdl_A_1_0x0"
}
