import QtQuick

// A value to read, in a control's place.
Item {
    id: root

    property string text
    // The setting's title and hint, for a screen reader.
    property string name
    property string description

    Accessible.role: Accessible.StaticText
    Accessible.name: name ? `${name}: ${text}` : text
    Accessible.description: description

    implicitWidth: words.implicitWidth
    implicitHeight: Math.max(Zen.control, words.height + 2 * Zen.space2)

    ZenData {
        id: words

        y: Zen.space2
        width: Math.min(implicitWidth, Zen.controlColumn)
        text: root.text
        color: Zen.bodyInk
        wrapMode: Text.Wrap
    }
}
