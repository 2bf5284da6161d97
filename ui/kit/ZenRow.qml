import QtQuick

// What every row has in common: its width, and the rule that parts it from the row above.
Item {
    // In a column, the first row is the one at the top.
    property bool isFirst: y === 0
    readonly property int rule: isFirst ? 0 : 1

    width: parent ? parent.width : 0

    RowRule {
        width: parent.width
        visible: !parent.isFirst
    }
}
