pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// The box with the choices of an open select. `current` is where the pointer or the keyboard is.
ZenBox {
    id: root

    property var choices: []
    property string selected
    property int current: -1
    // The id of the current choice, by which it is found again among other choices.
    property var currentId
    // Whether the keyboard brought the current choice.
    property bool isReached: false
    property string name
    property int titleElide: Text.ElideRight
    readonly property int mostShown: 8

    onCurrentChanged: if (current >= 0 && current < choices.length) currentId = choices[current].id

    signal picked(index: int)
    signal pointed(index: int)

    function reveal(index: int): void {
        list.positionViewAtIndex(index, ListView.Contain);
    }

    function point(index: int): void {
        isReached = false;
        current = index;
    }

    // The choice at a point of the list; -1 where there is none.
    function indexAt(at: point): int {
        const inside = mapToItem(list, at.x, at.y);
        return list.contains(inside) ? list.indexAt(inside.x, inside.y + list.contentY) : -1;
    }

    implicitHeight: 2 * Zen.space1 + Zen.choice * Math.min(mostShown, choices.length)
    radius: Zen.radius2
    color: Zen.gray0
    edge: Zen.gray9
    edgeWidth: 1

    Accessible.role: Accessible.List
    Accessible.name: name

    ListView {
        id: list

        anchors.fill: parent
        anchors.margins: Zen.space1
        clip: count > root.mostShown
        interactive: false
        boundsBehavior: Flickable.StopAtBounds
        model: root.choices
        reuseItems: true

        delegate: Pressable {
            id: choice

            required property int index
            required property var modelData
            readonly property bool isSelected: modelData.id === root.selected

            width: ListView.view.width
            height: Zen.choice
            activeFocusOnTab: false
            onClicked: root.picked(index)
            onPointerMoved: root.pointed(index)

            Accessible.role: Accessible.ListItem
            Accessible.name: modelData.title
            Accessible.selectable: true
            Accessible.selected: isSelected
            Accessible.focused: root.current === index
            Accessible.onPressAction: clicked()

            SoftBox {
                anchors.fill: parent
                radius: Zen.radius1
                color: root.current === choice.index ? Zen.gray2 : Zen.gray0
            }
            ElidedText {
                x: Zen.space2
                anchors.verticalCenter: parent.verticalCenter
                width: mark.x - x - Zen.space2
                text: Zen.head(choice.modelData.title)
                elide: root.titleElide
                tipBeside: root
                Accessible.ignored: true
            }
            Icon {
                id: mark

                x: choice.width - width - 6
                anchors.verticalCenter: parent.verticalCenter
                visible: choice.isSelected
                name: "check"
            }
            FocusRing {
                isInside: true
                corner: Zen.radius1
                visible: root.isReached && root.current === choice.index
            }
        }
    }
    Scroller {
        // Its strip lies between the check marks and the box's edge.
        anchors.rightMargin: -Zen.space1
        reach: 2 * Zen.space1 + 1
        flickable: list
        step: 2 * Zen.choice
        grain: Zen.choice
    }
}
