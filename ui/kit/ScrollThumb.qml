import QtQuick

// The strip at a view's right edge, with a thumb that can be dragged. A press beside the thumb brings it there.
MouseArea {
    id: root

    // How far the view can be scrolled, how far it is scrolled, and how much of it shows.
    required property real way
    required property real travelled
    required property real view
    readonly property real room: view - 2 * Zen.space1
    readonly property real length: Math.max(Zen.space5, Math.round(room * view / (way + view)))
    readonly property real start: Zen.space1 + Math.round((room - length) * travelled / way)
    // Where the thumb is held, from its top.
    property real grip

    signal moved(position: real)

    function bring(y: real): void {
        moved((y - grip - Zen.space1) / (room - length) * way);
    }

    width: 3 * Zen.space1
    height: view
    visible: way > 0.5
    hoverEnabled: true
    preventStealing: true
    onPressed: event => {
        const isOnThumb = event.y >= start && event.y < start + length;
        grip = isOnThumb ? event.y - start : length / 2;
        if (!isOnThumb)
            bring(event.y);
    }
    onPositionChanged: event => {
        if (pressed)
            bring(event.y);
    }
    Accessible.ignored: true

    SoftBox {
        x: root.width - 2 * Zen.space1
        y: root.start
        width: Zen.space1
        height: root.length
        radius: Zen.radiusFull
        color: root.containsMouse || root.pressed ? Zen.edgePointed : Zen.edge
    }
}
