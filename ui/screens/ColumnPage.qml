import QtQuick
import Palomet.Kit
import Palomet.Ui

// A pane of blocks under one another.
ScreenPage {
    id: root

    default property alias blocks: column.data

    view: Flickable {
        parent: root
        anchors.fill: parent
        clip: true
        interactive: false
        contentHeight: column.y + column.height + Zen.space6

        Column {
            id: column

            x: Zen.space7
            y: Zen.space2
            width: root.columnWidth
            spacing: Zen.space6
        }
    }
}
