import QtQuick
import Palomet.Kit
import Palomet.Ui

// What all panes have in common: they fill the page and scroll under its header. The ground between what is on it can have
// the focus, so that keys scroll it.
FocusScope {
    id: root

    required property Flickable view
    property int column: Zen.column
    readonly property int columnWidth: Math.min(column, width - 2 * Zen.space7)
    readonly property bool isScrolled: scroller.isScrolled
    // Whether the header is parted from what is scrolled beneath it, and by itself.
    readonly property bool isRuled: isScrolled && scroller.covered === 0
    property alias scroller: scroller
    // What is selected on the page, if anything was.
    property TextSelection selection: null
    // The buttons that stand beside its title, in the header.
    property list<Item> actions

    anchors.fill: parent
    Keys.onPressed: event => event.accepted = scroller.handle(event.key)

    // Not the page itself: a scope would give the focus back to what had it.
    Ground {
        anchors.fill: parent
    }
    WholeLines {
        id: lines

        view: root.view
        covered: scroller.covered
    }
    // No line is cut by the page's edges: what shows in part only waits behind these.
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
