import QtQuick
import Palomet.Kit

// Says whether the microphone is on. While it is off, a press asks to mend that.
SidebarLine {
    id: root

    property bool isOn: true
    property string textOn
    property string textOff
    readonly property color ink: isOn ? Zen.noteInk : Zen.alarmInk
    readonly property string words: isOn ? textOn : textOff

    signal fix

    icon: isOn ? "check" : "lock"
    iconSize: Zen.iconSmall
    iconInk: ink
    ground: !isOn && isPointed ? Zen.gray2 : Zen.gray0
    activeFocusOnTab: !isOn
    onClicked: if (!isOn) fix()

    Accessible.role: isOn ? Accessible.StaticText : Accessible.Button
    Accessible.name: words
    Accessible.onPressAction: clicked()

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
}
