import QtQuick

// A stack of rows under the rule that opens a block; each row draws the rule above itself unless it is the first.
Item {
    default property alias content: stack.data

    implicitHeight: 1 + stack.implicitHeight

    HairLine {
        width: parent.width
        color: Zen.gray9
    }
    Column {
        id: stack

        y: 1
        width: parent.width
    }
}
