import QtQuick

// A page of a settings panel that is built the first time it shows and kept
// afterwards, so that opening the panel builds only the page in view.
Loader {
    id: root

    // Document name of the page, beside this one in the module.
    property string page
    property bool shown: false
    // Initial values of the page's required properties.
    property var properties: ({})

    function build() {
        if (root.shown && root.status === Loader.Null)
            root.setSource(root.page, root.properties);
    }

    objectName: root.page
    visible: root.shown
    onShownChanged: root.build()
    Component.onCompleted: root.build()
}
