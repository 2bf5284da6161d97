import QtQuick

// Has its content only while a condition holds: a pane, an open list, a tool tip.
Repeater {
    property bool holds: false

    model: holds ? 1 : 0
}
