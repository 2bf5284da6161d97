import QtQuick
import Palomet.Kit

// Something said at some time, and what came of it.
ZenRow {
    id: root

    required property string clock
    required property string words
    property string reason
    property string action
    property bool isQuiet: false

    readonly property int line: rule + Zen.space3
    readonly property color ink: isQuiet ? Zen.noteInk : Zen.gray9

    implicitHeight: said.y + said.height + Zen.space3

    // Kept by its view for later use, it is not there for a screen reader either.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true

    Accessible.role: Accessible.ListItem
    Accessible.name: `${clock} ${action} ${words} ${reason}`

    ZenData {
        y: root.line + Zen.baseline(13, 21) - Zen.baseline(12, 20)
        text: root.clock
        size: 12
        color: Zen.noteInk
        Accessible.ignored: true
    }
    Column {
        id: said

        x: Zen.roleColumn
        y: root.line
        width: root.width - x - (result.visible ? result.width + Zen.space5 : 0)

        ZenText {
            width: parent.width
            text: root.words
            box: 21
            color: root.ink
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
        ZenText {
            width: parent.width
            visible: text !== ""
            text: root.reason
            size: 12
            box: 21
            color: Zen.noteInk
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
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
