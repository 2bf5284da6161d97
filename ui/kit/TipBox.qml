import QtQuick
import Palomet.Kit

// The box of a tool tip, under its host, or over it at the window's end; without a host, where it is put.
ZenBox {
    id: root

    property Item host: null
    required property string text

    function place(): void {
        if (!host)
            return;
        const below = host.mapToItem(parent, 0, host.height + Zen.space1);
        x = Math.max(Zen.space2, Math.min(below.x, parent.width - width - Zen.space2));
        y = below.y + height <= parent.height ? below.y : Math.max(Zen.space2, below.y - host.height - height - Zen.space2);
    }

    z: 2
    width: words.width + 2 * Zen.space2
    height: words.height + 2 * Zen.space1
    radius: Zen.radius1
    color: Zen.gray0
    edge: Zen.gray9
    edgeWidth: 1
    onHeightChanged: place()
    Component.onCompleted: place()

    Accessible.role: Accessible.ToolTip
    Accessible.name: text

    ZenText {
        id: words

        x: Zen.space2
        y: Zen.space1
        width: Math.min(implicitWidth, 480)
        text: root.text
        size: 12
        wrapMode: Text.Wrap
        maximumLineCount: 16
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
