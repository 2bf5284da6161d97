import QtQuick
import Palomet.Kit

// A heading over rows inside a page that scrolls, and the items under them. It shows only while there are rows. `position`
// is where it begins in the page's content.
Block {
    id: root

    required property ScreenPage page
    required property real position
    required title
    property alias model: rows.model
    property alias delegate: rows.delegate
    readonly property alias words: rows.words

    topPadding: Zen.space6
    visible: rows.count > 0

    WindowedRows {
        id: rows

        width: root.width
        page: root.page
        position: root.position + y
        name: root.title
    }
}
