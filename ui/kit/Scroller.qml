import QtQuick
import Palomet.Kit

// Scrolls a view that does not scroll by itself: by wheel, by touch, by keys, and so that what has the focus can be seen,
// with its whole row; and draws the thumb, when there is more than fits. It keeps the view within its content.
Item {
    id: root

    required property Flickable flickable
    // How far a notch of the wheel and an arrow key go.
    property int step: 3 * 21
    // The view comes to rest only so many points apart.
    property int grain: 1
    // How wide the strip is that the thumb stands in.
    property alias reach: thumb.width
    // How much of the view's top something else stands over.
    property real covered: 0
    readonly property real first: flickable.originY - flickable.topMargin
    readonly property real last: Math.max(first, flickable.originY + flickable.contentHeight + flickable.bottomMargin - flickable.height)
    readonly property bool isScrolled: flickable.contentY > first

    // Whether the user last scrolled to the end, as far as it was known then.
    property bool isEndWanted: false
    // Where the view would stand if it could anywhere: what a touchpad gives bit by bit adds up.
    property real wanted: 0
    // What has the focus and is kept in view until the user scrolls: the page may be laid out after it was reached.
    property Item reached: null

    // The user scrolled, or what has the focus was brought into view.
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

    // What a key asks of the view; false where the key means nothing to it.
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
        // Of what is larger than the view, some is enough.
        if (whole.height + 2 * margin < flickable.height - covered)
            show(top - margin, bottom + margin);
        else if (bottom < flickable.contentY + covered || top > flickable.contentY + flickable.height)
            show(top - margin, top + margin);
    }

    // Scrolls as little as brings a part of the content into view.
    function show(top: real, bottom: real): void {
        if (top < flickable.contentY + covered)
            bringTo(top - covered);
        else if (bottom > flickable.contentY + flickable.height)
            bringTo(bottom - flickable.height);
    }

    anchors.fill: flickable
    // Later, for scrolling a list makes rows, and their heights change where its content ends.
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
