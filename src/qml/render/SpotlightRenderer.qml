import QtQuick

// Full-screen mask computed per pixel; nothing here is redrawn unless one of
// the uniforms changes.
ShaderEffect {
    id: root

    property real centerX: width / 2
    property real centerY: height / 2
    property real radius: 120
    property real edgeBlur: 30
    property real darkness: 0.67
    property bool active: true

    readonly property point center: Qt.point(root.centerX, root.centerY)
    readonly property size itemSize: Qt.size(root.width, root.height)
    readonly property real activeAmount: root.active ? 1.0 : 0.0

    blending: true
    fragmentShader: "qrc:/qt/qml/GlimmoraApp/src/render/shaders/spotlight.frag.qsb"
}
