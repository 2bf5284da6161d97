import QtQuick
import Palomet.Kit

// What all panes have in common: they fill the page and scroll under its header. The screen itself can have the focus, so
// that keys scroll it.
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

    MouseArea {
        anchors.fill: parent
        // A press on nothing takes the focus from what is being edited.
        onPressed: root.forceActiveFocus(Qt.MouseFocusReason)
    }
    Scroller {
        id: scroller

        z: 1
        flickable: root.view
    }
}
