import QtQuick
import Palomet.Kit

// A heading over rows inside a page that scrolls, and the items under them. It shows only while there are rows. `position`
// is where it begins in the page's content.
Column {
    id: root

    required property ScreenPage page
    required property real position
    required property string title
    property alias model: rows.model
    property alias delegate: rows.delegate
    readonly property alias words: rows.words

    width: parent ? parent.width : 0
    visible: rows.count > 0

    Gap {
        height: Zen.space6
    }
    BlockLabel {
        text: root.title
    }
    Gap {
        height: Zen.space2
    }
    WindowedRows {
        id: rows

        width: root.width
        page: root.page
        position: root.position + y
        name: root.title
    }
}
