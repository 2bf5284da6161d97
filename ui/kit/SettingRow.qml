import QtQuick

// One setting: its title and hint on the left, its control on the right, every control beginning on the same line.
ZenRow {
    id: root

    property string title
    property string hint
    property int titleElide: Text.ElideRight
    default property alias control: slot.data

    implicitHeight: rule + Math.max(52, words.y + words.height + Zen.space3 - rule, slot.y + slot.height + Zen.space2 - rule)

    Column {
        id: words

        y: root.rule + Zen.space4
        width: root.width - Zen.controlColumn - Zen.space5

        ElidedText {
            width: parent.width
            text: root.title
            elide: root.titleElide
            font.weight: Zen.bold
        }
        ZenNote {
            width: parent.width
            visible: text !== ""
            text: root.hint
            Accessible.ignored: true
        }
    }
    Row {
        id: slot

        x: root.width - Zen.controlColumn
        y: root.rule + Zen.space2
        width: Zen.controlColumn
        height: Math.max(Zen.control, implicitHeight)
        spacing: Zen.space4
    }
}
