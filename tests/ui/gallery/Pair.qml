import QtQuick
import Palomet.Kit

// Two columns.
Row {
    id: root

    property alias first: first.data
    property alias second: second.data

    width: parent ? parent.width : 0
    spacing: Zen.space7

    Column {
        id: first

        width: (root.width - root.spacing) / 2
    }
    Column {
        id: second

        width: (root.width - root.spacing) / 2
    }
}
