import QtQuick
import Palomet.Kit

// An utterance: its time, its words, and what became of it.
WordsRow {
    id: root

    required property string clock
    property string reason
    property string action
    property bool isQuiet: false

    readonly property color ink: isQuiet ? Zen.noteInk : Zen.gray9

    implicitHeight: text.y + text.height + (reason ? why.height : 0) + Zen.space3
    text.width: root.width - root.text.x - (result.visible ? result.width + Zen.space5 : 0)
    text.color: root.ink

    Accessible.name: isContinued ? `${words} ${reason}` : `${clock} ${action} ${words} ${reason}`

    SmallData {
        line: root.line
        text: root.clock
    }
    ZenText {
        id: why

        x: root.text.x
        y: root.text.y + root.text.height
        width: root.text.width
        visible: root.reason !== ""
        text: root.reason
        size: 12
        box: 21
        color: Zen.noteInk
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    SmallData {
        id: result

        x: root.width - width
        line: root.line
        visible: text !== ""
        text: root.action
        color: root.ink
    }
}
