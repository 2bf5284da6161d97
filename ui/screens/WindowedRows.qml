import QtQuick
import Palomet.Kit

// Rows inside a page that scrolls, of which only those exist that show. `position` is where they begin in the page's
// content.
Item {
    id: root

    required property Flickable view
    required property real position
    property alias model: list.model
    property alias delegate: list.delegate
    property alias count: list.count

    implicitHeight: 1 + list.contentHeight
    onPositionChanged: Qt.callLater(list.place)

    HairLine {
        width: parent.width
        color: Zen.gray9
    }
    ListView {
        id: list

        function place(): void {
            const hidden = Math.max(0, Math.min(contentHeight - height, root.view.contentY - root.position - 1));
            y = 1 + hidden;
            contentY = originY + hidden;
        }

        width: root.width
        height: Math.min(root.view.height, contentHeight)
        // Later, for placing it makes rows, and their heights change what the place depends on.
        onHeightChanged: Qt.callLater(place)
        onContentHeightChanged: Qt.callLater(place)
        onOriginYChanged: Qt.callLater(place)
        Component.onCompleted: place()
        interactive: false
        reuseItems: true
        currentIndex: -1
        keyNavigationEnabled: false
    }
    Connections {
        target: root.view

        function onContentYChanged(): void {
            list.place();
        }
    }
}
