import QtQuick

// A row to read: a label column, a value that takes what is left, a detail at the right edge.
SelectableRow {
    id: root

    property string label
    property string value
    property string trailing
    property int labelWidth: 120
    // The smaller texts stand on the value's line.
    readonly property int smallY: rule + Zen.baseline(13, 44) - Zen.baseline(12, 44)

    prose: words
    implicitHeight: 44

    Accessible.role: Accessible.ListItem
    Accessible.name: `${Zen.head(value)} ${label} ${trailing}`

    ZenData {
        y: root.smallY
        width: root.labelWidth
        text: root.label
        size: 12
        box: 44
        color: Zen.noteInk
        Accessible.ignored: true
    }
    Prose {
        id: words

        x: root.labelWidth
        y: root.rule
        width: root.width - x - (detail.visible ? detail.width + Zen.space5 : 0)
        text: root.value
        selectionStart: root.selectionStart
        selectionEnd: root.selectionEnd
        box: 44
        isLine: true
        shown: cut.elidedText

        TextMetrics {
            id: cut

            font.family: Zen.family
            font.pixelSize: words.size
            font.weight: Zen.medium
            elide: Text.ElideRight
            elideWidth: words.width
            text: Zen.head(words.text)
        }
        HoverHandler {
            id: pointer

            enabled: words.isElided
        }
        ToolTip {
            text: Zen.head(words.text)
            isWanted: pointer.hovered && words.isElided
        }
    }
    ZenData {
        id: detail

        x: root.width - width
        y: root.smallY
        visible: text !== ""
        text: root.trailing
        size: 12
        box: 44
        color: Zen.noteInk
        Accessible.ignored: true
    }
}
