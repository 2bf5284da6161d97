import QtQuick
import Palomet.Kit

// Scrolls a view that is not interactive: by wheel, touch and keys, and so that the item with the focus shows with its whole
// row. It keeps the view within its content, and draws the thumb when there is more than fits.
Item {
    id: root

    required property Flickable flickable
    // The distance of one notch of the wheel, and of an arrow key.
    property int step: 3 * 21
    // The view comes to rest only at multiples of this.
    property int grain: 1
    // The width of the strip that the thumb stands in.
    property alias reach: thumb.width
    // The height at the view's top that something else covers.
    property real covered: 0
    readonly property real first: flickable.originY - flickable.topMargin
    readonly property real last: Math.max(first, flickable.originY + flickable.contentHeight + flickable.bottomMargin - flickable.height)
    readonly property bool isScrolled: flickable.contentY > first

    // Whether the user last scrolled to what was the end then.
    property bool isEndWanted: false
    // The place without rounding, so that a touchpad's small steps add up.
    property real wanted: 0
    // The item with the focus. It is kept in view until the user scrolls, because the page may be laid out again.
    property Item reached: null

    // The user scrolled, or the item with the focus was brought into view.
    signal scrolled

    function scrollTo(y: real): void {
        wanted = Math.max(first, Math.min(last, y));
        const rest = grain > 1 ? first + Math.round((wanted - first) / grain) * grain : Math.round(wanted);
        flickable.contentY = Math.max(first, Math.min(last, rest));
    }

    function bringTo(y: real): void {
        isEndWanted = y >= last;
        scrollTo(y);
        scrolled();
    }

    function scrollBy(distance: real): void {
        reached = null;
        const isAtWanted = Math.abs(wanted - flickable.contentY) <= grain / 2;
        bringTo((isAtWanted ? wanted : flickable.contentY) + distance);
    }

    // Scrolls by a key; false for a key that scrolls nothing.
    function handle(key: int): bool {
        const page = flickable.height - covered - step;
        switch (key) {
        case Qt.Key_Down: scrollBy(step); return true;
        case Qt.Key_Up: scrollBy(-step); return true;
        case Qt.Key_PageDown: scrollBy(page); return true;
        case Qt.Key_PageUp: scrollBy(-page); return true;
        case Qt.Key_Home: scrollBy(first - flickable.contentY); return true;
        case Qt.Key_End: scrollBy(last - flickable.contentY); return true;
        }
        return false;
    }

    function reveal(item: Item): void {
        const margin = Zen.space5;
        let whole = item;
        for (let ancestor = item; ancestor !== flickable.contentItem; ancestor = ancestor.parent) {
            if (!ancestor)
                return;
            if (ancestor instanceof ZenRow && ancestor.height + 2 * margin <= flickable.height - covered)
                whole = ancestor;
        }
        const top = whole.mapToItem(flickable.contentItem, 0, 0).y;
        const bottom = top + whole.height;
        // Of an item larger than the view, a part is enough.
        if (whole.height + 2 * margin < flickable.height - covered)
            show(top - margin, bottom + margin);
        else if (bottom < flickable.contentY + covered || top > flickable.contentY + flickable.height)
            show(top - margin, top + margin);
    }

    // Scrolls no further than it takes to bring a part of the content into view.
    function show(top: real, bottom: real): void {
        if (top < flickable.contentY + covered)
            bringTo(top - covered);
        else if (bottom > flickable.contentY + flickable.height)
            bringTo(bottom - flickable.height);
    }

    anchors.fill: flickable
    // Later: scrolling a list makes rows, whose heights move the end of its content.
    onFirstChanged: settling.restart()
    onLastChanged: settling.restart()
    Window.onActiveFocusItemChanged: {
        reached = Window.activeFocusItem;
        if (reached)
            reveal(reached);
    }

    Timer {
        id: settling

        interval: 0
        onTriggered: {
            root.scrollTo(root.flickable.contentY);
            if (root.reached)
                root.reveal(root.reached);
        }
    }
    WheelHandler {
        target: null
        // Of itself it takes a mouse's wheel alone, and no touchpad's. XWayland calls every wheel a touchpad's.
        acceptedDevices: PointerDevice.AllDevices
        onWheel: event => root.scrollBy(-event.angleDelta.y / 120 * root.step)
    }
    DragHandler {
        property real from

        target: null
        acceptedDevices: PointerDevice.TouchScreen
        xAxis.enabled: false
        onActiveChanged: from = root.flickable.contentY
        onTranslationChanged: if (active) root.scrollBy(from - translation.y - root.flickable.contentY)
    }
    ScrollThumb {
        id: thumb

        x: root.width - width
        way: root.last - root.first
        travelled: root.flickable.contentY - root.first
        view: root.height
        onMoved: position => {
            root.reached = null;
            root.bringTo(root.first + position);
        }
    }
}
