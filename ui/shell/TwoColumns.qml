import QtQuick
import Palomet.Kit

// Two columns: the sidebar, and the page that takes the rest.
Rectangle {
    default property alias content: page.data
    property alias sidebar: side.data

    color: Zen.gray0

    Item {
        id: side

        width: Zen.sidebar
        height: parent.height
    }
    HairLine {
        x: Zen.sidebar - thickness
        height: parent.height
        isUpright: true
    }
    Item {
        id: page

        x: Zen.sidebar
        width: parent.width - x
        height: parent.height
    }
}
