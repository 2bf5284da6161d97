import QtQuick

// Makes its content while a condition holds, and only then: a pane, an open list, a tool tip.
Repeater {
    property bool holds: false

    model: holds ? 1 : 0
}
