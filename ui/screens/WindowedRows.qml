import QtQuick
import Palomet.Kit

// Rows inside a page that scrolls; only those that show exist. `position` is where they begin in the page's content.
Item {
    id: root

    required property ScreenPage page
    required property real position
    property alias model: list.model
    property alias delegate: list.delegate
    property alias count: list.count
    property alias name: area.name
    readonly property alias words: area.selection

    implicitHeight: 1 + list.contentHeight
    onPositionChanged: settling.restart()

    HairLine {
        width: parent.width
        color: Zen.gray9
    }
    ListView {
        id: list

        function place(): void {
            const hidden = Math.max(0, Math.min(contentHeight - height, root.page.view.contentY - root.position - 1));
            y = 1 + hidden;
            contentY = originY + hidden;
        }

        width: root.width
        height: Math.min(root.page.view.height, contentHeight)
        // Later: placing the list makes rows, whose heights the place depends on.
        onHeightChanged: settling.restart()
        onContentHeightChanged: settling.restart()
        onOriginYChanged: settling.restart()
        Component.onCompleted: place()
        interactive: false
        reuseItems: true
        currentIndex: -1
        keyNavigationEnabled: false

        ReadingOrder {
            of: list.contentItem
        }
        SelectionArea {
            id: area

            parent: list.contentItem
            width: list.width
            list: list
            page: root.page
            model: list.model
            name: ""
        }
    }
    Timer {
        id: settling

        interval: 0
        onTriggered: list.place()
    }
    Connections {
        target: root.page.view

        function onContentYChanged(): void {
            list.place();
        }
    }
}
