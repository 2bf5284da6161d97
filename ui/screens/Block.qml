import QtQuick
import Palomet.Kit

// A label over what belongs together.
Column {
    id: root

    property string title

    width: parent ? parent.width : 0

    BlockLabel {
        text: root.title
    }
    Gap {
        height: Zen.space2
    }
}
