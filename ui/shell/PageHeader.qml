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
        y: Zen.space5
        text: root.crumb
    }
    ZenDisplay {
        id: heading

        y: 44
        text: root.title
        size: 40
        box: 48
        isHung: true
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    ZenBody {
        y: 96
        text: root.subtitle
        color: Zen.bodyInk
        wrapMode: Text.NoWrap
    }
}
