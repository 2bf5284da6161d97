import QtQuick

// The base of every row: it sets the width, and draws the rule under the row above.
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
