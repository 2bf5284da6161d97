import QtQuick

// The thumb at a view's right edge; it can be dragged.
MouseArea {
    id: root

    // How far the view can be scrolled, how far it has been, and how much of it shows.
    required property real way
    required property real travelled
    required property real view
    readonly property real room: view - 2 * Zen.space1
    readonly property real length: Math.max(Zen.space5, Math.round(room * view / (way + view)))
    property real grip

    signal moved(position: real)

    y: Zen.space1 + Math.round((room - length) * travelled / way)
    width: 3 * Zen.space1
    height: length
    visible: way > 0.5
    hoverEnabled: true
    preventStealing: true
    onPressed: event => grip = event.y
    onPositionChanged: event => {
        if (pressed)
            moved((y + event.y - grip - Zen.space1) / (room - length) * way);
    }
    Accessible.ignored: true

    SoftBox {
        x: Zen.space1
        width: Zen.space1
        height: root.height
        radius: Zen.radiusFull
        color: root.containsMouse || root.pressed ? Zen.gray4 : Zen.gray3
    }
}
