import QtQuick
import Palomet.Kit

// One setting: its title and hint on the left, its control on the right. All controls begin at the same x.
ZenRow {
    id: root

    property string title
    property string hint
    // Where a title is cut that is a path. Other titles wrap.
    property int titleElide: Text.ElideNone
    // The control that a press on the words presses.
    property Pressable buddy: null
    default property alias control: slot.data

    implicitHeight: rule + Math.max(52, words.y + words.height + Zen.space3 - rule, slot.y + slot.height + Zen.space2 - rule)

    Column {
        id: words

        y: root.rule + Zen.space4
        width: root.width - Zen.controlColumn - Zen.space5

        ElidedText {
            width: parent.width
            text: Zen.head(root.title)
            elide: root.titleElide
            wrapMode: elide === Text.ElideNone ? Text.Wrap : Text.NoWrap
            maximumLineCount: elide === Text.ElideNone ? 100 : 1
            font.weight: Zen.bold
        }
        SignText {
            width: parent.width
            visible: root.hint !== ""
            words: root.hint
            box: 21
            color: Zen.noteInk
            Accessible.ignored: true
        }
    }
    MouseArea {
        x: words.x
        y: words.y
        width: words.width
        height: words.height
        enabled: root.buddy?.enabled ?? false
        hoverEnabled: true
        onContainsMouseChanged: root.buddy.isPointed = containsMouse
        onPressed: root.buddy.forceActiveFocus(Qt.MouseFocusReason)
        onClicked: root.buddy.clicked()
    }
    Row {
        id: slot

        x: root.width - Zen.controlColumn
        y: root.rule + Zen.space2
        width: Zen.controlColumn
        height: Math.max(Zen.control, implicitHeight)
        spacing: Zen.space4
    }
}
