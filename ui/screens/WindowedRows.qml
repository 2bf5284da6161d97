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

    HairLine {
        width: parent.width
        color: Zen.gray9
    }
    ListView {
        id: list

        readonly property real hidden: Math.max(0, Math.min(contentHeight - height, root.view.contentY - root.position - 1))

        y: 1 + hidden
        width: root.width
        height: Math.min(root.view.height, contentHeight)
        contentY: originY + hidden
        interactive: false
        reuseItems: true
        currentIndex: -1
        keyNavigationEnabled: false
    }
}
