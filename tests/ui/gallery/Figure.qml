import QtQuick
import Palomet.Kit

// One control in one state, and what state it is.
Column {
    id: root

    property string caption
    default property alias content: body.data

    spacing: Zen.space2

    Item {
        id: body

        implicitWidth: childrenRect.width
        implicitHeight: childrenRect.height
    }
    Caption {
        text: root.caption
    }
}
