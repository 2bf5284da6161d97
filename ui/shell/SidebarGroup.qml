import QtQuick
import Palomet.Kit

// A heading over the panes of a group.
Column {
    id: root

    property string title
    default property alias content: items.data
    readonly property var panes: Array.from(items.children)

    width: parent ? parent.width : 0

    BlockLabel {
        x: Zen.space3
        text: root.title
    }
    Gap {
        height: Zen.space2
    }
    Column {
        id: items

        width: parent.width
    }
}
