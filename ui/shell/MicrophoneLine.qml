import QtQuick
import Palomet.Kit

// Says whether the microphone is on. While it is off, a press asks to mend that.
Pressable {
    id: root

    property bool isOn: true
    property string textOn
    property string textOff
    readonly property color ink: isOn ? Zen.noteInk : Zen.alarmInk
    readonly property string words: isOn ? textOn : textOff

    signal fix

    width: parent ? parent.width : 0
    height: Zen.control
    activeFocusOnTab: !isOn
    onClicked: if (!isOn) fix()

    Accessible.role: isOn ? Accessible.StaticText : Accessible.Button
    Accessible.name: words
    Accessible.onPressAction: clicked()

    SoftBox {
        anchors.fill: parent
        radius: Zen.radius2
        color: !root.isOn && root.isPointed ? Zen.gray2 : Zen.gray0
    }
    Icon {
        x: Zen.space3
        anchors.verticalCenter: parent.verticalCenter
        name: root.isOn ? "check" : "lock"
        size: Zen.iconSmall
        color: root.ink
    }
    ElidedText {
        x: Zen.space3 + Zen.iconSmall + Zen.space2
        anchors.verticalCenter: parent.verticalCenter
        width: root.width - x - Zen.space3
        text: root.words
        size: 12
        color: root.ink
        Accessible.ignored: true
    }
    // While the microphone is on, there is nothing to press.
    Ground {
        anchors.fill: parent
        visible: root.isOn
    }
    FocusRing {
        isInside: true
        visible: root.isReached
    }
}
