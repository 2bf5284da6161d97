pragma ComponentBehavior: Bound
import QtQuick

// Cells side by side, equally wide, under a rule; two by two where there is no room for four.
Item {
    id: root

    default property alias cells: slot.data
    property color ruleColor: Zen.gray9
    property list<real> rules

    function arrange(): void {
        const cells = slot.children;
        const columns = width < 720 ? 2 : 4;
        const tops = [];
        let top = 0;
        for (let first = 0; first < cells.length; first += columns) {
            const row = Array.from({length: Math.min(columns, cells.length - first)}, (_, i) => cells[first + i]);
            const height = Math.max(...row.map(cell => cell.implicitHeight));
            row.forEach((cell, column) => {
                cell.isFlush = column === 0;
                cell.isLast = column === columns - 1;
                cell.x = Math.round(column * width / columns);
                cell.width = Math.round((column + 1) * width / columns) - cell.x;
                cell.y = top + 1;
                cell.height = height;
            });
            tops.push(top);
            top += height + 1;
        }
        rules = tops;
        implicitHeight = top;
    }

    onWidthChanged: arrange()
    Component.onCompleted: {
        for (let i = 0; i < slot.children.length; ++i)
            slot.children[i].implicitHeightChanged.connect(arrange);
        arrange();
    }

    Item {
        id: slot

        anchors.fill: parent
    }
    Repeater {
        model: root.rules

        HairLine {
            required property int index
            required property real modelData

            y: modelData
            // Anchors, not a binding of the width, which would be lost when the rules change at the same moment.
            anchors.left: parent?.left
            anchors.right: parent?.right
            color: index === 0 ? root.ruleColor : Zen.rule
        }
    }
}
