import QtQuick
import Palomet.Kit

// The box of a select in each of its states.
SoftBox {
    id: root

    property string value
    property bool isBusy: false
    property bool isOpen: false
    property bool isPointed: false
    readonly property string shownValue: value || "—"
    property int valueElide: Text.ElideRight

    implicitWidth: 200
    implicitHeight: Zen.control
    radius: Zen.radius2
    color: Zen.gray0
    edge: isOpen ? Zen.gray9 : isPointed ? Zen.edgePointed : Zen.edge
    edgeWidth: 1

    ElidedText {
        x: Zen.space3
        y: Zen.space2
        width: chevron.x - x - Zen.space2
        text: Zen.head(root.shownValue)
        color: root.isBusy ? Zen.noteInk : Zen.gray9
        elide: root.valueElide
        Accessible.ignored: true
    }
    Icon {
        id: chevron

        x: root.width - width - 10
        anchors.verticalCenter: parent.verticalCenter
        name: "chevron-down"
        color: root.isOpen || root.isPointed ? Zen.gray9 : Zen.noteInk
        rotation: root.isOpen ? 180 : 0

        Behavior on rotation {
            enabled: root.Exposure.isShown && !Zen.isMotionReduced

            MoveAnimation {}
        }
    }
}
