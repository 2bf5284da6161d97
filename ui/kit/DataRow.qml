import QtQuick

// A row to read: a label column, a value that takes what is left, a detail at the right edge.
ZenRow {
    id: root

    property string label
    property string value
    property string trailing
    property int labelWidth: 120
    // The smaller texts stand on the value's line.
    readonly property int smallY: rule + Zen.baseline(13, 44) - Zen.baseline(12, 44)

    implicitHeight: 44

    // Kept by its view for later use, it is not there for a screen reader either.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true

    Accessible.role: Accessible.ListItem
    Accessible.name: `${value} ${label} ${trailing}`

    ZenData {
        y: root.smallY
        width: root.labelWidth
        text: root.label
        size: 12
        box: 44
        color: Zen.noteInk
        Accessible.ignored: true
    }
    ElidedText {
        x: root.labelWidth
        y: root.rule
        width: root.width - x - (detail.visible ? detail.width + Zen.space5 : 0)
        text: root.value
        box: 44
        Accessible.ignored: true
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
