import QtQuick
import Palomet.Kit

// The page's crumb, title and subtitle, and the pane's actions at its right.
PageHeaderLayout {
    id: root

    property string crumb
    property string title
    property string subtitle

    titleWidth: heading.x + heading.implicitWidth
    implicitHeight: Zen.header

    ZenLabel {
        y: Zen.crumbLine - Zen.baseline(10, 16)
        text: root.crumb
    }
    ZenDisplay {
        id: heading

        y: Zen.titleLine - Zen.baseline(40, 48)
        text: root.title
        size: 40
        box: 48
        isHung: true
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    ZenBody {
        y: Zen.subtitleLine - Zen.baseline(15, 24)
        text: root.subtitle
        color: Zen.bodyInk
        wrapMode: Text.NoWrap
    }
}
