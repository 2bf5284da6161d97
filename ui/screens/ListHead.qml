import QtQuick
import Palomet.Kit

// The label above a pane's list, with the line that the list begins under.
Column {
    property alias text: label.text

    BlockLabel {
        id: label
    }
    Gap {
        height: Zen.space2
    }
    HairLine {
        width: parent.width
        color: Zen.gray9
    }
}
