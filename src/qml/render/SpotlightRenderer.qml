import QtQuick

// The spotlight mask: black at `darkness`, but for a soft disc at the centre.
// The fragment shader computes it per pixel in the square that holds the disc
// and its feather. Past that square the mask is uniform, `backdrop`: shading
// or even blending every pixel of a full screen each frame is more than a
// software renderer can do at the pointer's pace. So where this item lies
// first in its window, the window clears to `backdrop` and the square
// replaces its pixels (`windowClearsBackdrop`); elsewhere four plain bands
// draw the backdrop. Nothing here is redrawn unless a property changes.
Item {
    id: root

    property real centerX: width / 2
    property real centerY: height / 2
    property real radius: 120
    property real edgeBlur: 30
    property real darkness: 0.67
    property bool active: true
    property bool windowClearsBackdrop: false

    // From this distance of the centre on, the mask is at full darkness.
    readonly property real reach: Math.ceil(Math.max(root.radius, root.edgeBlur)) + 1
    readonly property color backdrop: Qt.rgba(0, 0, 0, root.active
                                              ? Math.min(1, Math.max(0, root.darkness)) : 0)
    readonly property color bandColor: root.windowClearsBackdrop ? "transparent" : root.backdrop

    // The square's edges, kept within the item for the bands.
    readonly property real innerLeft: Math.min(root.width, Math.max(0, disc.x))
    readonly property real innerRight: Math.min(root.width, Math.max(0, disc.x + disc.width))
    readonly property real innerTop: Math.min(root.height, Math.max(0, disc.y))
    readonly property real innerBottom: Math.min(root.height, Math.max(0, disc.y + disc.height))

    ShaderEffect {
        id: disc

        // Whole pixels, so that the bands meet the square without a seam.
        x: Math.round(root.centerX) - root.reach
        y: Math.round(root.centerY) - root.reach
        width: 2 * root.reach
        height: 2 * root.reach

        // The shader's inputs, in this square's own pixels.
        readonly property point center: Qt.point(root.centerX - disc.x, root.centerY - disc.y)
        readonly property size itemSize: Qt.size(disc.width, disc.height)
        readonly property real radius: root.radius
        readonly property real edgeBlur: root.edgeBlur
        readonly property real darkness: root.darkness
        readonly property real activeAmount: root.active ? 1.0 : 0.0

        // Over the window's own backdrop the square's alpha replaces it.
        blending: !root.windowClearsBackdrop
        fragmentShader: "qrc:/qt/qml/GlimmoraApp/src/render/shaders/spotlight.frag.qsb"
    }

    Rectangle {
        width: root.width
        height: root.innerTop
        color: root.bandColor
    }

    Rectangle {
        y: root.innerBottom
        width: root.width
        height: root.height - root.innerBottom
        color: root.bandColor
    }

    Rectangle {
        y: root.innerTop
        width: root.innerLeft
        height: root.innerBottom - root.innerTop
        color: root.bandColor
    }

    Rectangle {
        x: root.innerRight
        y: root.innerTop
        width: root.width - root.innerRight
        height: root.innerBottom - root.innerTop
        color: root.bandColor
    }
}
