import QtQuick
import Palomet.Kit

// A pane in the sidebar.
SidebarLine {
    id: root

    property string title
    property string badge
    property bool isActive: false

    // The arrows ask for the pane above or below.
    signal walked(step: int)

    ground: isActive ? Zen.gray2 : isPointed ? Zen.gray1 : Zen.gray0
    iconInk: isActive ? Zen.gray9 : Zen.noteInk

    Keys.onUpPressed: walked(-1)
    Keys.onDownPressed: walked(1)

    Accessible.role: Accessible.PageTab
    Accessible.name: title
    Accessible.description: badge
    Accessible.selectable: true
    Accessible.selected: isActive
    Accessible.onPressAction: clicked()

    ZenText {
        x: Zen.space3 + Zen.iconSidebar + Zen.space3
        anchors.verticalCenter: parent.verticalCenter
        text: root.title
        color: root.isActive || root.isPointed ? Zen.gray9 : Zen.bodyInk
        font.weight: root.isActive ? Zen.bold : Zen.medium
        Accessible.ignored: true
    }
    ZenData {
        x: root.width - width - Zen.space3
        anchors.verticalCenter: parent.verticalCenter
        text: root.badge
        size: 12
        color: root.isActive ? Zen.bodyInk : Zen.noteInk
        Accessible.ignored: true
    }
}
