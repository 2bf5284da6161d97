import QtQuick
import Palomet.Kit

// The loop state as a small glyph.
Item {
    id: root

    // One of the eight states, by its raw name; any other is shown as offline.
    property string loopState: "offline"
    property real level: 0
    property bool isInverted: false
    property bool isCompact: false

    readonly property bool isBars: loopState === "hearing" || loopState === "speaking"
    readonly property bool isSteps: loopState === "thinking"
    readonly property bool isLock: loopState === "muted"
    readonly property bool isRound: !isBars && !isSteps && !isLock
    readonly property color ink: isInverted ? Zen.gray0 : Zen.gray9
    readonly property int diameter: isCompact ? 10 : 14

    implicitWidth: isBars ? bars.implicitWidth : isSteps ? steps.implicitWidth : isLock ? lock.size : diameter
    implicitHeight: isBars ? bars.implicitHeight : isSteps ? steps.size : isLock ? lock.size : diameter
    Accessible.ignored: true

    ZenBox {
        readonly property bool isQuiet: root.loopState !== "waiting" && root.loopState !== "drafting"
        readonly property bool isSolid: root.loopState === "listening"

        width: root.diameter
        height: root.diameter
        visible: root.isRound
        radius: Zen.radiusFull
        color: isSolid ? root.ink : "transparent"
        edge: isQuiet ? (root.isInverted ? Zen.gray5 : Zen.gray4) : root.ink
        edgeWidth: isSolid ? 0 : 1.5
        line: ZenBox.Exact

        ZenBox {
            anchors.centerIn: parent
            width: root.isCompact ? 4 : 5.6
            height: width
            visible: root.loopState === "drafting"
            radius: Zen.radiusFull
            color: root.ink
        }
    }
    Steps {
        id: steps

        visible: root.isSteps
        size: root.isCompact ? 4 : 5
        ink: root.ink
        faint: root.isInverted ? Zen.gray7 : Zen.gray3
    }
    Bars {
        id: bars

        visible: root.isBars
        input: root.level
        maxHeight: root.isCompact ? 12 : 14
        barWidth: root.isCompact ? 2 : 3
        color: root.ink
    }
    Icon {
        id: lock

        visible: root.isLock
        name: "lock"
        size: root.isCompact ? 14 : 18
        color: Zen.red7
    }
}
