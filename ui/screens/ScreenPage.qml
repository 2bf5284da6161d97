import QtQuick
import Palomet.Kit

// What all panes have in common: they fill the page and scroll under its header. The ground between what is on it can have
// the focus, so that keys scroll it.
FocusScope {
    id: root

    required property Flickable view
    property int column: Zen.column
    readonly property int columnWidth: Math.min(column, width - 2 * Zen.space7)
    readonly property bool isScrolled: scroller.isScrolled
    property alias scroller: scroller

    anchors.fill: parent
    Component.onCompleted: isScrolledChanged()
    Keys.onPressed: event => event.accepted = scroller.handle(event.key)

    // Not the page itself: a scope would give the focus back to what had it.
    Ground {
        anchors.fill: parent
    }
    Scroller {
        id: scroller

        z: 1
        flickable: root.view
    }
}
