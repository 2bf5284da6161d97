import QtQuick

// A row to read: a label column, a value that takes what is left, a detail at the right edge.
ZenRow {
    id: root

    property string label
    property string value
    property string trailing
    property int labelWidth: 120

    implicitHeight: 44

    ZenData {
        y: root.rule
        width: root.labelWidth
        text: root.label
        size: 12
        box: 44
        color: Zen.gray5
    }
    ElidedText {
        x: root.labelWidth
        y: root.rule
        width: root.width - x - (detail.visible ? detail.width + Zen.space5 : 0)
        text: root.value
        box: 44
    }
    ZenData {
        id: detail

        x: root.width - width
        y: root.rule
        visible: text !== ""
        text: root.trailing
        size: 12
        box: 44
        color: Zen.gray5
    }
}
