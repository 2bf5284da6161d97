import QtQuick
import Palomet.Kit
import Palomet.Ui

// A label over setting rows, those of a group before all others, and the items under them.
Column {
    id: root

    property SettingGroup group: null
    property string title: group?.title ?? ""
    property alias row: repeater.delegate
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

        Repeater {
            id: repeater

            model: root.group?.settings ?? []
            delegate: SettingLine {}
        }
    }
    Column {
        id: extra

        width: root.width
    }
}
