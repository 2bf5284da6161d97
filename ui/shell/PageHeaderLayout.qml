import QtQuick
import Palomet.Kit

// Lays actions beside a title: at the right edge, but never over the title, which keeps its width.
Item {
    id: root

    default property alias titleBlock: block.data
    property alias actions: row.children
    property real titleWidth

    Item {
        id: block

        anchors.fill: parent
    }

    Row {
        id: row

        x: Math.max(root.width - width, root.titleWidth + Zen.space5)
        // In the middle of the title's capitals.
        y: Math.round(Zen.titleLine - 0.35 * 40 - Zen.control / 2)
        spacing: Zen.space2
    }
}
