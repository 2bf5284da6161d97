import QtQuick

// Scrolls a view that does not scroll by itself: by wheel, by touch, by keys, and so that what has the focus can be seen;
// and draws the thumb, when there is more than fits.
Item {
    id: root

    required property Flickable flickable
    // How far a notch of the wheel and an arrow key go.
    readonly property int step: 3 * 21
    readonly property real first: flickable.originY - flickable.topMargin
    readonly property real last: Math.max(first, flickable.originY + flickable.contentHeight + flickable.bottomMargin - flickable.height)

    function scrollTo(y: real): void {
        flickable.contentY = Math.max(first, Math.min(last, Math.round(y)));
    }

    function scrollBy(distance: real): void {
        scrollTo(flickable.contentY + distance);
    }

    // What a key asks of the view; false where the key means nothing to it.
    function handle(key: int): bool {
        const page = flickable.height - step;
        switch (key) {
        case Qt.Key_Down: scrollBy(step); return true;
        case Qt.Key_Up: scrollBy(-step); return true;
        case Qt.Key_PageDown: scrollBy(page); return true;
        case Qt.Key_PageUp: scrollBy(-page); return true;
        case Qt.Key_Home: scrollTo(first); return true;
        case Qt.Key_End: scrollTo(last); return true;
        }
        return false;
    }

    function reveal(item: Item): void {
        for (let ancestor = item; ancestor !== flickable.contentItem; ancestor = ancestor.parent) {
            if (!ancestor)
                return;
        }
        const margin = Zen.space5;
        const top = item.mapToItem(flickable.contentItem, 0, 0).y - margin;
        const bottom = top + item.height + 2 * margin;
        if (top < flickable.contentY)
            scrollTo(top);
        else if (bottom > flickable.contentY + flickable.height)
            scrollTo(bottom - flickable.height);
    }

    anchors.fill: flickable

    Window.onActiveFocusItemChanged: if (Window.activeFocusItem) reveal(Window.activeFocusItem)

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
        onTranslationChanged: if (active) root.scrollTo(from - translation.y)
    }
    ScrollThumb {
        x: root.width - width
        way: root.last - root.first
        travelled: root.flickable.contentY - root.first
        view: root.height
        onMoved: position => root.scrollTo(root.first + position)
    }
}
