import QtQuick
import Palomet.Kit

// An utterance: its time, its words, and what became of it.
SelectableRow {
    id: root

    required property string clock
    required property string words
    property string reason
    property string action
    property bool isQuiet: false

    // Whether it continues the text of the row before.
    required property bool isContinued
    readonly property int line: isContinued ? 0 : rule + Zen.space3
    readonly property color ink: isQuiet ? Zen.noteInk : Zen.gray9

    prose: text
    implicitHeight: text.y + text.height + (reason ? why.height : 0) + Zen.space3

    Accessible.role: Accessible.ListItem
    Accessible.name: isContinued ? `${words} ${reason}` : `${clock} ${action} ${words} ${reason}`

    ZenData {
        y: root.line + Zen.baseline(13, 21) - Zen.baseline(12, 20)
        text: root.clock
        size: 12
        color: Zen.noteInk
        Accessible.ignored: true
    }
    Prose {
        id: text

        x: Zen.roleColumn
        y: root.line
        width: root.width - x - (result.visible ? result.width + Zen.space5 : 0)
        text: root.words
        selectionStart: root.selectionStart
        selectionEnd: root.selectionEnd
        color: root.ink
    }
    ZenText {
        id: why

        x: text.x
        y: text.y + text.height
        width: text.width
        visible: root.reason !== ""
        text: root.reason
        size: 12
        box: 21
        color: Zen.noteInk
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    ZenData {
        id: result

        x: root.width - width
        y: root.line + Zen.baseline(13, 21) - Zen.baseline(12, 20)
        visible: text !== ""
        text: root.action
        size: 12
        color: root.ink
        Accessible.ignored: true
    }
}
