import QtQuick
import Palomet.Kit

// The program's name, the groups of panes, and the microphone's state at the foot.
Item {
    id: root

    property string app
    property string version
    default property alias menu: groups.data
    property alias status: foot.data

    Ground {
        anchors.fill: parent
    }
    ZenDisplay {
        id: wordmark

        x: Zen.space4 + Zen.space3
        y: Zen.crumbLine - Zen.baseline(22, 28)
        text: root.app
        isHung: true
    }
    ZenData {
        x: root.width - 1 - Zen.space4 - Zen.space3 - width
        y: Zen.crumbLine - Zen.baseline(12, 20)
        text: root.version
        size: 12
        color: Zen.noteInk
    }
    // A window that is lower than the groups shows as much of them as has room, and the rest by the wheel and the keys.
    Flickable {
        id: view

        y: Zen.titleLine - Zen.baseline(10, 16)
        width: root.width - 1
        height: Math.max(0, Math.min(contentHeight, foot.y - Zen.space2 - y))
        contentHeight: groups.height
        clip: height < contentHeight
        interactive: false

        Column {
            id: groups

            x: Zen.space4
            width: view.width - 2 * Zen.space4
            spacing: Zen.space5
        }
    }
    Scroller {
        flickable: view
    }
    Item {
        id: foot

        x: Zen.space4
        y: root.height - height - Zen.space4
        width: groups.width
        height: Zen.control
    }
}
