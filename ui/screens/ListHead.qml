import QtQuick
import Palomet.Kit

// The label above a pane's list, with the line that the list begins under.
Block {
    HairLine {
        width: parent.width
        color: Zen.gray9
    }
}
