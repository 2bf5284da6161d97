pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// Plain text that appears when the pointer rests on the parent.
Item {
    id: root

    property string text
    property bool isWanted: false
    // Whether it needs a window of its own, because the parent's has no room for it.
    property bool isOutside: false
    // The item that it must not cover.
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
