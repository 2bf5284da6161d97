import QtQuick
import Palomet.Kit

// Two columns: the sidebar, and the page that takes the rest. A window that is narrower than both need, such as a tile of
// half a screen, shows a part of them and goes sideways: by wheel, by its thumb, and to what has the focus.
Rectangle {
    id: root

    default property alias content: page.data
    property alias sidebar: side.data
    // How far it can go to the right, and how far the user wants it.
    readonly property real way: Math.max(0, Zen.board - width)
    property real wanted: 0

    function goTo(x: real): void {
        wanted = Math.max(0, Math.min(way, x));
    }

    // Goes no further than it takes to show the item, from its left edge where it is wider than the window.
    function reveal(item: Item): void {
        const margin = Zen.space5;
        const place = item.mapToItem(board, Qt.rect(0, 0, item.width, item.height));
        if (place.right + margin > wanted + width)
            goTo(place.right + margin - width);
        if (place.left - margin < wanted)
            goTo(place.left - margin);
    }

    color: Zen.gray0
    clip: way > 0
    Window.onActiveFocusItemChanged: {
        if (way > 0 && Window.activeFocusItem)
            reveal(Window.activeFocusItem);
    }

    Item {
        id: board

        x: -Math.min(root.wanted, root.way)
        width: Math.max(root.width, Zen.board)
        height: root.height

        Item {
            id: side

            width: Zen.sidebar
            height: parent.height
        }
        HairLine {
            x: Zen.sidebar - thickness
            height: parent.height
            isUpright: true
        }
        Item {
            id: page

            x: Zen.sidebar
            width: parent.width - x
            height: parent.height
        }
    }
    ScrollThumb {
        y: root.height
        way: root.way
        travelled: Math.min(root.wanted, root.way)
        view: root.width
        // An upright one that lies at the bottom edge.
        rotation: -90
        transformOrigin: Item.TopLeft
        onMoved: position => root.goTo(position)
    }
    WheelHandler {
        target: null
        orientation: Qt.Horizontal
        acceptedDevices: PointerDevice.AllDevices
        enabled: root.way > 0
        onWheel: event => root.goTo(Math.min(root.wanted, root.way) - event.angleDelta.x / 120 * Zen.space7)
    }
}
