pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// The menu of an item, at a point of its window, above everything else. The focus stays with that item, whose owner hands
// the keys to `handle`.
Item {
    id: root

    // Each has an `id`, a `title`, the words for its `keys`, and says whether it `isOn`.
    required property var entries
    // In the window's points.
    required property point at
    required property string name
    property int current: -1
    // Whether the keyboard opened the menu or moves in it.
    property bool isReached: false
    property bool isPlaced: false

    signal picked(id: string)
    signal dismissed

    function pick(index: int): void {
        if (index >= 0 && !entries[index].isOn)
            return;
        if (index >= 0)
            picked(entries[index].id);
        dismissed();
    }

    // Moves to the next entry that can be picked; from the last one to the first, and back.
    function move(step: int): void {
        isReached = true;
        for (let tried = 0; tried < entries.length; ++tried) {
            current = current < 0 && step < 0 ? entries.length - 1 : (current + step + entries.length) % entries.length;
            if (entries[current].isOn)
                return;
        }
        current = -1;
    }

    function handle(key: int): void {
        switch (key) {
        case Qt.Key_Down:
            move(1);
            break;
        case Qt.Key_Up:
            move(-1);
            break;
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            pick(current);
            break;
        default:
            dismissed();
        }
    }

    anchors.fill: parent
    z: 1
    onWidthChanged: if (isPlaced) dismissed()
    onHeightChanged: if (isPlaced) dismissed()
    Component.onCompleted: {
        isPlaced = true;
        if (isReached)
            move(1);
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.AllButtons
        onPressed: root.dismissed()
        onWheel: wheel => wheel.accepted = true
    }
    ZenBox {
        x: Math.max(0, Math.min(root.at.x, root.width - width - Zen.space1))
        y: root.at.y + height <= root.height ? root.at.y : Math.max(0, root.at.y - height)
        width: 220
        height: 2 * Zen.space1 + root.entries.length * Zen.choice
        radius: Zen.radius2
        color: Zen.gray0
        edge: Zen.gray9
        edgeWidth: 1

        Accessible.role: Accessible.PopupMenu
        Accessible.name: root.name

        Column {
            x: Zen.space1
            y: Zen.space1
            width: parent.width - 2 * Zen.space1

            Repeater {
                model: root.entries

                Pressable {
                    id: entry

                    required property int index
                    required property var modelData

                    width: parent ? parent.width : 0
                    height: Zen.choice
                    enabled: modelData.isOn
                    activeFocusOnTab: false
                    onClicked: root.pick(index)
                    onIsPointedChanged: if (isPointed) {
                        root.isReached = false;
                        root.current = index;
                    }

                    Accessible.role: Accessible.MenuItem
                    Accessible.name: modelData.title
                    Accessible.description: modelData.keys
                    Accessible.focused: root.current === index
                    Accessible.onPressAction: clicked()

                    SoftBox {
                        anchors.fill: parent
                        radius: Zen.radius1
                        color: root.current === entry.index && entry.enabled ? Zen.gray2 : Zen.gray0
                    }
                    ZenText {
                        x: Zen.space2
                        anchors.verticalCenter: parent.verticalCenter
                        text: entry.modelData.title
                        color: entry.enabled ? Zen.gray9 : Zen.disabledInk
                        Accessible.ignored: true
                    }
                    ZenData {
                        x: entry.width - width - Zen.space2
                        anchors.verticalCenter: parent.verticalCenter
                        text: entry.modelData.keys
                        size: 12
                        color: entry.enabled ? Zen.bodyInk : Zen.disabledInk
                        Accessible.ignored: true
                    }
                    FocusRing {
                        isInside: true
                        corner: Zen.radius1
                        visible: root.isReached && root.current === entry.index
                    }
                }
            }
        }
    }
}
