import QtQuick
import Palomet.Kit

// A level meter of vertical bars that follows its level smoothly: up quickly, down slowly.
BarsPicture {
    id: root

    // From 0 to 1; other values are clipped.
    property real input: 0

    level: Zen.isMotionReduced ? sampler.value : input
    color: Zen.gray9
    shape: Zen.levelShape

    Behavior on level {
        enabled: root.Exposure.isShown && !Zen.isMotionReduced

        NumberAnimation {
            duration: root.input > root.level ? Zen.riseTime : Zen.fallTime
        }
    }
    Timer {
        id: sampler

        property real value: 0

        interval: 250
        repeat: true
        running: Zen.isMotionReduced && root.Exposure.isShown
        triggeredOnStart: true
        onTriggered: value = root.input
    }
}
