import QtQuick
import Palomet.Kit

// The right-hand page: a header that stands still over a screen that scrolls.
Item {
    id: root

    property int column: Zen.column
    property bool isScrolled: false
    property alias crumb: header.crumb
    property alias title: header.title
    property alias subtitle: header.subtitle
    property alias actions: header.actions
    default property alias content: screen.data

    anchors.fill: parent

    Ground {
        width: root.width
        height: Zen.header
    }
    PageHeader {
        id: header

        x: Zen.space7
        width: Math.min(root.column, root.width - 2 * Zen.space7)
    }
    Item {
        id: screen

        y: Zen.header
        width: root.width
        height: root.height - y
    }
    HairLine {
        y: Zen.header - 1
        width: root.width
        visible: root.isScrolled
    }
}
