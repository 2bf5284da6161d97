import QtQuick
import Palomet.Kit

// One part of the gallery: a rule, a label, and what it shows.
Column {
    id: root

    property string title
    default property alias content: body.data

    width: parent ? parent.width : 0

    HairLine {
        width: parent.width
        color: Zen.gray9
    }
    Item {
        width: 1
        height: Zen.space3
    }
    ZenLabel {
        text: root.title
    }
    Item {
        width: 1
        height: Zen.space4
    }
    Column {
        id: body

        width: parent.width
        spacing: Zen.space5
    }
    Item {
        width: 1
        height: Zen.space7
    }
}
