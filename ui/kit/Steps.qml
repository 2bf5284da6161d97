pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// A row of dots, one lit in turn.
Row {
    id: root

    property color ink: Zen.gray9
    property color faint: Zen.gray3
    property int size: 5
    property int step: 1
    readonly property int current: Zen.isMotionReduced && isMoving ? 1 : step
    property bool isMoving: true

    spacing: Zen.space1

    Repeater {
        model: 3

        ZenBox {
            required property int index

            width: root.size
            height: root.size
            radius: Zen.radiusFull
            color: index === root.current ? root.ink : root.faint
        }
    }
    Timer {
        interval: Zen.stepTime
        repeat: true
        running: root.isMoving && root.Exposure.isShown && !Zen.isMotionReduced
        onTriggered: root.step = (root.step + 1) % 3
    }
}
