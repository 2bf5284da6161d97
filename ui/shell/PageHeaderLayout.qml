import QtQuick
import Palomet.Kit

// Lays actions beside a title: at the right edge, but never over the title, which keeps its width.
Item {
    id: root

    property alias actions: row.data
    property real titleWidth

    Row {
        id: row

        x: Math.max(root.width - width, root.titleWidth + Zen.space5)
        y: 50
        spacing: Zen.space2
    }
}
