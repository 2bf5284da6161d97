import QtQuick
import Palomet.Kit

// What a pane says in place of a list that has no rows.
Column {
    property alias text: body.text

    topPadding: Zen.space5

    ZenBody {
        id: body

        width: parent.width
    }
}
