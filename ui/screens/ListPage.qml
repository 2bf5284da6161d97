import QtQuick
import Palomet.Kit
import Palomet.Ui

// A pane whose rows may be very many: only those that show exist. What stands above and below them scrolls with them.
ScreenPage {
    id: root

    property alias model: list.model
    property alias delegate: list.delegate
    property alias head: head.data
    property alias foot: foot.data
    // What the rows are, for whoever does not see their heading.
    property string listName
    property alias textRole: area.textRole
    readonly property alias rows: list
    readonly property alias words: area.selection
    readonly property alias footY: foot.y
    // Where the last row ends, in the view's content.
    readonly property real rowsEnd: list.originY + list.contentHeight

    view: ListView {
        id: list

        parent: root
        anchors.fill: parent
        clip: true
        interactive: false
        reuseItems: true
        currentIndex: -1
        keyNavigationEnabled: false
        topMargin: head.height
        bottomMargin: foot.height
        Accessible.role: Accessible.List
        Accessible.name: root.listName
        Component.onCompleted: contentY = originY - topMargin

        ReadingOrder {
            of: list.contentItem
        }

        // Not the view's own header and footer: those are made apart from the page and cannot see it.
        Column {
            id: head

            parent: list.contentItem
            x: Zen.space7
            y: list.originY - height
            width: root.columnWidth
            topPadding: Zen.space2
        }
        SelectionArea {
            id: area

            parent: list.contentItem
            x: Zen.space7
            width: root.columnWidth
            list: list
            page: root
            model: list.model
            name: root.listName
        }
        Column {
            id: foot

            parent: list.contentItem
            x: Zen.space7
            y: root.rowsEnd
            width: root.columnWidth
            bottomPadding: Zen.space6
        }
    }
}
