import QtQuick
import Palomet.Kit
import Palomet.Ui

// The base of all panes: it fills the page and scrolls under its header. Its empty ground can have the focus, so that keys
// scroll the page.
FocusScope {
    id: root

    required property Flickable view
    property int column: Zen.column
    readonly property int columnWidth: Math.min(column, width - 2 * Zen.space7)
    readonly property bool isScrolled: scroller.isScrolled
    // Whether the header draws a rule under itself. It does not where something else goes on from it.
    readonly property bool isRuled: isScrolled && scroller.covered === 0
    property alias scroller: scroller
    // The page's last selection, if there was one.
    property TextSelection selection: null
    // The buttons beside the title in the header.
    property list<Item> actions

    anchors.fill: parent
    Keys.onPressed: event => event.accepted = scroller.handle(event.key)

    // Not the page itself: a focus scope would give the focus back to the item that had it.
    Ground {
        anchors.fill: parent
    }
    WholeLines {
        id: lines

        view: root.view
        covered: scroller.covered
    }
    // Hide the lines that the page's edges would cut.
    Cover {
        z: 1
        x: Zen.space3
        y: scroller.covered
        width: root.width - 2 * x
        height: lines.above

        MouseArea {
            anchors.fill: parent
        }
    }
    Cover {
        z: 1
        x: Zen.space3
        y: root.height - height
        width: root.width - 2 * x
        height: lines.below

        MouseArea {
            anchors.fill: parent
        }
    }
    Scroller {
        id: scroller

        z: 1
        flickable: root.view
    }
}
