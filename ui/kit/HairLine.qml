import QtQuick

// A line one point thick, of whole pixels of the screen: what is left over of a point is left out, as at the edges of
// controls.
Item {
    id: root

    property color color: Zen.rule
    property bool isUpright: false
    // Its thickness in points.
    readonly property real thickness: Math.max(1, Math.floor(Screen.devicePixelRatio + 0.01)) / Math.max(1, Screen.devicePixelRatio)

    implicitWidth: 1
    implicitHeight: 1

    // Made thin by a transformation: a rectangle that ends between two points is drawn up to the next one, and that is
    // a pixel or two of the screen, as it falls.
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
