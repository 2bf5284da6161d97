import QtQuick
import Palomet.Kit
import "signs.js" as Signs

// One key cap. A text that begins with "icon:" names an icon; a sign that the typeface lacks is drawn with one, too.
ZenBox {
    id: root

    property string cap

    readonly property string icon: Signs.icons[cap] ?? (cap.startsWith("icon:") ? cap.slice(5) : "")

    implicitWidth: Math.max(Zen.cap, icon || cap.length < 2 ? 0 : words.implicitWidth + 2 * Zen.space2 + 2)
    implicitHeight: Zen.cap
    radius: Zen.radius1
    color: Zen.gray0
    edge: Zen.edge
    edgeWidth: 1

    Icon {
        anchors.centerIn: parent
        visible: root.icon !== ""
        name: root.icon
        size: Zen.iconSmall
    }
    ZenText {
        id: words

        anchors.centerIn: parent
        visible: root.icon === ""
        text: root.icon ? "" : root.cap
        size: 11
        box: 16
        font.weight: Zen.bold
    }
}
