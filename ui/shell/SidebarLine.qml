import QtQuick
import Palomet.Kit

// A line of the sidebar that can be pressed: an icon, and room for words.
Pressable {
    id: root

    property string icon
    property int iconSize: Zen.iconSidebar
    property color iconInk
    property alias ground: box.color

    width: parent ? parent.width : 0
    height: Zen.control

    SoftBox {
        id: box

        anchors.fill: parent
        radius: Zen.radius2
    }
    Icon {
        x: Zen.space3
        anchors.verticalCenter: parent.verticalCenter
        name: root.icon
        size: root.iconSize
        color: root.iconInk
    }
    FocusRing {
        isInside: true
        visible: root.isReached
    }
}
