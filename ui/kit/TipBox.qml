import QtQuick
import Palomet.Kit

// The box of a tool tip. It stands under its host, over it where there is no room below, or beside the item that it must not
// cover. Without a host it stays where it is put.
ZenBox {
    id: root

    property Item host: null
    // The item that it must not cover.
    property Item beside: null
    required property string text
    // The greatest width of its lines.
    property real limit: 480

    function placeUnder(): void {
        const below = host.mapToItem(parent, 0, host.height + Zen.space1);
        x = Math.max(Zen.space2, Math.min(below.x, parent.width - width - Zen.space2));
        y = below.y + height <= parent.height ? below.y : Math.max(Zen.space2, below.y - host.height - height - Zen.space2);
    }

    // On the side where there is more room, at its host's height.
    function placeBeside(): void {
        const taken = beside.mapToItem(parent, Qt.rect(0, 0, beside.width, beside.height));
        const left = taken.x - Zen.space1;
        const right = parent.width - taken.x - taken.width - Zen.space1;
        limit = Math.min(480, Math.max(left, right) - 3 * Zen.space2);
        x = right > left ? parent.width - right : left - width;
        const middle = host.mapToItem(parent, 0, host.height / 2).y;
        y = Math.max(Zen.space2, Math.min(Math.round(middle - height / 2), parent.height - height - Zen.space2));
    }

    function place(): void {
        if (!host || !parent)
            return;
        if (beside)
            placeBeside();
        else
            placeUnder();
    }

    z: 2
    width: Math.ceil(words.contentWidth) + 2 * Zen.space2
    height: words.height + 2 * Zen.space1
    radius: Zen.radius1
    color: Zen.gray0
    edge: Zen.gray9
    edgeWidth: 1
    onWidthChanged: place()
    onHeightChanged: place()
    Component.onCompleted: place()

    Accessible.role: Accessible.ToolTip
    Accessible.name: text

    ZenText {
        id: words

        x: Zen.space2
        y: Zen.space1
        width: Math.min(Math.ceil(implicitWidth), root.limit)
        text: root.text
        size: 12
        wrapMode: Text.Wrap
        maximumLineCount: 16
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
