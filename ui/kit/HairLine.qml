import QtQuick

// One pixel of the screen, whatever its scale, in a line one point high.
Item {
    property color color: Zen.gray3

    implicitHeight: 1

    Rectangle {
        width: parent.width
        height: 1 / Math.max(1, Screen.devicePixelRatio)
        color: parent.color
    }
}
