pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// Words that appear beside the pointer when it rests on an item: the parent. Plain text, whatever it says.
Item {
    id: root

    property string text
    property bool isWanted: false
    // Whether the parent's own window has no room for it.
    property bool isOutside: false
    // What must not be covered by it.
    property Item beside: null
    property bool isOpen: false
    readonly property bool isDue: isWanted && Exposure.isShown && text !== ""

    onIsDueChanged: if (!isDue) isOpen = false
    Accessible.ignored: true

    Timer {
        interval: Zen.tipTime
        running: root.isDue
        onTriggered: root.isOpen = true
    }
    When {
        holds: root.isOpen && !root.isOutside

        Item {
            TipBox {
                parent: root.Window.contentItem
                host: root.parent
                beside: root.beside
                text: root.text
            }
        }
    }
    When {
        holds: root.isOpen && root.isOutside

        Item {
            TipWindow {
                host: root.parent
                text: root.text
            }
        }
    }
}
