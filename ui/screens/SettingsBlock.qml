import QtQuick
import Palomet.Kit
import Palomet.Ui

// A label over setting rows, those of a group before all others, and the items under them.
Block {
    id: root

    property SettingGroup group: null
    property alias row: repeater.delegate
    default property alias settings: rows.content
    property alias after: extra.data

    title: group?.title ?? ""

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
