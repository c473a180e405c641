import QtQuick

// One of the white icon resources drawn in any colour, so that it shows on a
// light panel as well as on a dark one.
Item {
    id: root

    property string name
    property color color: "white"

    Image {
        id: shape

        anchors.fill: parent
        sourceSize.width: root.width
        sourceSize.height: root.height
        source: "qrc:/qt/qml/GlimmoraApp/src/assets/icons/" + root.name + ".svg"
        visible: false
    }

    ShaderEffect {
        readonly property Image source: shape
        readonly property color tint: root.color

        anchors.fill: parent
        fragmentShader: "qrc:/qt/qml/GlimmoraApp/src/render/shaders/icontint.frag.qsb"
    }
}
