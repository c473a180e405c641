import QtQuick

// Stand-in for AppController's keystroke report: every report renews the
// text and signals, also for the same keys.
QtObject {
    id: root

    property string lastKeystroke: ""

    signal keystrokeChanged

    function reportKeystroke(combo: string) {
        root.lastKeystroke = combo;
        root.keystrokeChanged();
    }
}
