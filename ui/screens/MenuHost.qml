pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// Opens the menu of a text. While it is open, the text's keys come here first.
Item {
    id: root

    property var entries: []
    property bool isOpen: false
    property point at

    // Time to set the entries, and not before: another program decides whether there is something to paste.
    signal opening
    signal picked(id: string)
    // A key asks for the menu.
    signal wanted
    // A key for the open menu.
    signal pressed(key: int)

    property bool isByKey: false

    // Opens it at a point of an item.
    function open(item: Item, x: real, y: real, isByKey: bool): void {
        root.isByKey = isByKey;
        at = item.mapToItem(Window.contentItem, x, y);
        opening();
        isOpen = true;
    }

    Exposure.onIsShownChanged: if (!Exposure.isShown) isOpen = false
    Keys.onPressed: event => {
        const isWanted = event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier);
        event.accepted = isOpen || isWanted;
        if (isOpen)
            pressed(event.key);
        else if (isWanted)
            wanted();
    }

    When {
        holds: root.isOpen

        Item {
            ContextMenu {
                id: menu

                parent: root.Window.contentItem
                entries: root.entries
                at: root.at
                isReached: root.isByKey
                name: Words.t("text.menu")
                onPicked: id => root.picked(id)
                onDismissed: root.isOpen = false

                Connections {
                    target: root

                    function onPressed(key: int): void {
                        menu.handle(key);
                    }
                }
            }
        }
    }
}
