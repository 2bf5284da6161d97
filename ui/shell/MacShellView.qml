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
    Rectangle {
        x: Zen.sidebar - width
        width: 1 / Math.max(1, Screen.devicePixelRatio)
        height: parent.height
        color: Zen.gray3
    }
    Item {
        id: page

        x: Zen.sidebar
        width: parent.width - x
        height: parent.height
    }
}
