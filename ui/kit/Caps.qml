pragma ComponentBehavior: Bound
import QtQuick

// A shortcut as a row of key caps.
Row {
    id: root

    property list<string> caps

    spacing: Zen.space1

    Repeater {
        model: root.caps

        Cap {
            required property string modelData

            cap: modelData
        }
    }
}
