pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// Words that appear beside the pointer when it rests on an item: the parent. Plain text, whatever it says.
Item {
    id: root

    property string text
    property bool isWanted: false
    property bool isOpen: false

    onIsWantedChanged: if (!isWanted) isOpen = false
    Accessible.ignored: true

    Timer {
        interval: Zen.tipTime
        running: root.isWanted && root.Exposure.isShown && root.text !== ""
        onTriggered: root.isOpen = true
    }
    When {
        holds: root.isOpen

        Item {
            TipBox {
                parent: root.Window.contentItem
                host: root.parent
                text: root.text
            }
        }
    }
}
