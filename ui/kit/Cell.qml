import QtQuick

// A labelled value with a note under it. CellRow places it.
Item {
    id: root

    property string label
    property string note
    // The value in words.
    property string spoken
    // The last cell of a row draws no rule after it.
    property bool isLast: false
    // The first cell of a row stands flush left.
    property bool isFlush: false
    // WholeLines hides it where it is scrolled away in part.
    readonly property bool isWhole: true
    default property alias value: slot.data

    implicitHeight: words.y + words.height + Zen.space2

    Accessible.role: Accessible.StaticText
    Accessible.name: note ? `${label}: ${spoken}. ${note}` : `${label}: ${spoken}`

    HairLine {
        x: root.width
        height: root.height
        isUpright: true
        visible: !root.isLast
    }
    Column {
        id: words

        x: root.isFlush ? 0 : Zen.space4 + 1
        y: Zen.space3
        width: root.width - x - Zen.space3

        ZenLabel {
            text: root.label
        }
        Gap {
            height: Zen.space1
        }
        Row {
            id: slot

            width: parent.width
            height: 28
            spacing: Zen.space2
        }
        Gap {
            height: Zen.space1
        }
        ZenNote {
            width: parent.width
            height: Math.max(21, implicitHeight)
            text: root.note
            Accessible.ignored: true
        }
    }
}
