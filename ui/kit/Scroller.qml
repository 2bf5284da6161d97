import QtQuick
import Palomet.Kit

// Scrolls a view that does not scroll by itself: by wheel, by touch, by keys, and so that what has the focus can be seen;
// and draws the thumb, when there is more than fits. It keeps the view within its content.
Item {
    id: root

    required property Flickable flickable
    // How far a notch of the wheel and an arrow key go.
    readonly property int step: 3 * 21
    readonly property real first: flickable.originY - flickable.topMargin
    readonly property real last: Math.max(first, flickable.originY + flickable.contentHeight + flickable.bottomMargin - flickable.height)
    readonly property bool isScrolled: flickable.contentY > first

    // Whether the user last scrolled to the end, as far as it was known then.
    property bool isEndWanted: false

    // The user scrolled.
    signal scrolled

    function scrollTo(y: real): void {
        flickable.contentY = Math.max(first, Math.min(last, Math.round(y)));
    }

    function scrollBy(distance: real): void {
        isEndWanted = flickable.contentY + distance >= last;
        scrollTo(flickable.contentY + distance);
        scrolled();
    }

    // What a key asks of the view; false where the key means nothing to it.
    function handle(key: int): bool {
        const page = flickable.height - step;
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
        for (let ancestor = item; ancestor !== flickable.contentItem; ancestor = ancestor.parent) {
            if (!ancestor)
                return;
        }
        const margin = Zen.space5;
        const top = item.mapToItem(flickable.contentItem, 0, 0).y - margin;
        const bottom = top + item.height + 2 * margin;
        if (top < flickable.contentY)
            scrollBy(top - flickable.contentY);
        else if (bottom > flickable.contentY + flickable.height)
            scrollBy(bottom - flickable.height - flickable.contentY);
    }

    anchors.fill: flickable
    // Later, for scrolling a list makes rows, and their heights change where its content ends.
    onFirstChanged: settling.restart()
    onLastChanged: settling.restart()
    Window.onActiveFocusItemChanged: if (Window.activeFocusItem) reveal(Window.activeFocusItem)

    Timer {
        id: settling

        interval: 0
        onTriggered: root.scrollTo(root.flickable.contentY)
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
        x: root.width - width
        way: root.last - root.first
        travelled: root.flickable.contentY - root.first
        view: root.height
        onMoved: position => root.scrollBy(root.first + position - root.flickable.contentY)
    }
}
