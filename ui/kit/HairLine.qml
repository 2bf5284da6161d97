import QtQuick

// A line one point thick, rounded down to whole pixels of the screen, as the edges of controls are.
Item {
    id: root

    property color color: Zen.rule
    property bool isUpright: false
    // In points.
    readonly property real thickness: Math.max(1, Math.floor(Screen.devicePixelRatio + 0.01)) / Math.max(1, Screen.devicePixelRatio)

    implicitWidth: 1
    implicitHeight: 1

    // A transformation makes it thin: a rectangle that ends between two points would be drawn up to the next point, which
    // is one pixel or two.
    Rectangle {
        width: root.isUpright ? 1 : root.width
        height: root.isUpright ? root.height : 1
        color: root.color
        transform: Scale {
            xScale: root.isUpright ? root.thickness : 1
            yScale: root.isUpright ? 1 : root.thickness
        }
    }
}
