import QtQuick
import Palomet.Kit

// An on/off switch without a state of its own: a press asks for the other position, and the switch moves when its owner
// says so.
Pressable {
    id: root

    property bool isOn: false
    property string name
    property string description
    // What the position means, in words.
    property string stateText

    signal toggled(isOn: bool)

    implicitWidth: Zen.switchWidth
    implicitHeight: Zen.switchHeight
    onClicked: toggled(!isOn)

    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.description: stateText ? (description ? `${stateText}. ${description}` : stateText) : description
    Accessible.checkable: true
    Accessible.checked: isOn
    Accessible.onPressAction: clicked()
    Accessible.onToggleAction: clicked()

    SoftBox {
        anchors.fill: parent
        radius: Zen.radiusFull
        color: !root.isOn ? Zen.gray0 : root.isPointed ? Zen.gray8 : Zen.gray9
        edge: root.isPointed ? Zen.edgePointed : Zen.edge
        edgeWidth: root.isOn ? 0 : 1.5
    }
    ZenBox {
        x: root.isOn ? 20 : 4
        y: 4
        width: 16
        height: 16
        radius: 8
        color: root.isOn ? Zen.gray0 : Zen.noteInk

        Behavior on x {
            enabled: root.Exposure.isShown && !Zen.isMotionReduced

            MoveAnimation {}
        }
    }
    FocusRing {
        corner: 12
        visible: root.isReached
    }
}
