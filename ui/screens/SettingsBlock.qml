import QtQuick
import Palomet.Kit

// A label over a stack of setting rows, and what stands under them.
Column {
    id: root

    property string title
    default property alias settings: rows.content
    property alias after: extra.data

    width: parent ? parent.width : 0

    BlockLabel {
        text: root.title
    }
    Gap {
        height: Zen.space2
    }
    SettingRows {
        id: rows

        width: root.width
    }
    Column {
        id: extra

        width: root.width
    }
}
