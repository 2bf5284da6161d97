import QtQuick
import Palomet.Kit
import Palomet.Ui

// A pane with a list that may be very long: only the rows that show exist. The items above and below scroll with them.
ScreenPage {
    id: root

    property alias model: list.model
    property alias delegate: list.delegate
    property alias head: head.data
    property alias foot: foot.data
    // Stands in place of the list while that has no rows.
    required property string emptyText
    // Stands under the list.
    property string note
    // The list's name for a screen reader.
    property string listName
    property alias textRole: area.textRole
    readonly property alias rows: list
    readonly property alias words: area.selection
    readonly property alias footY: foot.y
    // The end of the last row, in the view's content.
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

        // Not the view's own header and footer, which are made outside the page and cannot refer to it.
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

            Column {
                width: parent.width
                topPadding: Zen.space5
                visible: list.count === 0

                ZenBody {
                    width: parent.width
                    text: root.emptyText
                }
            }
            Gap {
                height: Zen.space3
                visible: note.visible
            }
            ZenNote {
                id: note

                width: parent.width
                visible: text !== ""
                text: root.note
            }
        }
    }
}
