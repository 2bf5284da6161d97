pragma ComponentBehavior: Bound
import QtQuick

// A line to type in, with a placeholder while it is empty.
TextInput {
    id: root

    property string placeholder
    property string name
    property string description
    // Gets the keys before the line does.
    property Item menu: null

    leftPadding: Zen.space3
    rightPadding: Zen.space3
    topPadding: Zen.baseline(13, height) - Zen.ascent(13)
    clip: true
    color: Zen.gray9
    selectionColor: Zen.gray3
    selectedTextColor: Zen.gray9
    selectByMouse: true
    activeFocusOnTab: true
    font.family: Zen.family
    font.pixelSize: 13
    font.weight: Zen.medium

    Keys.forwardTo: menu ? [menu] : []

    cursorDelegate: Item {
        id: caret

        width: 1

        Rectangle {
            y: Math.round((root.height - height) / 2) - caret.y
            width: 1
            height: 16
            visible: root.cursorVisible
            color: Zen.gray9
        }
    }

    Accessible.role: Accessible.EditableText
    Accessible.name: name
    Accessible.description: description || placeholder
    Accessible.editable: true

    ZenText {
        x: Zen.space3
        width: root.width - 2 * x
        visible: root.text === "" && root.preeditText === ""
        text: root.placeholder
        box: root.height
        color: Zen.noteInk
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
