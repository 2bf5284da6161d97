import QtQuick
import Palomet.Kit

// Words that can be selected, in lines of a fixed height, as they are written: markup is never interpreted. What is
// selected is said from outside, for it may go on in others.
Item {
    id: root

    property string text
    property int size: 13
    property int box: 21
    property color color: Zen.gray9
    // What shows of the text, where that is one line that was cut; a position at the cut stands for the end of the text.
    property string shown: text
    readonly property bool isElided: shown !== text
    property bool isLine: false
    property int selectionStart: 0
    property int selectionEnd: 0
    property bool isSelecting: false
    // Laid out once, when all is known.
    property bool isReady: false
    property alias lineCount: edit.lineCount

    // The position in the text that is nearest to a point.
    function positionAt(x: real, y: real): int {
        // The middle of its line: a little above the letters is not yet the line, to the text.
        const line = Math.floor(Math.max(0, Math.min(height - 1, y)) / box);
        const position = edit.positionAt(Math.max(0, Math.min(width - 1, x)), (line + 0.5) * box - edit.y);
        return isElided && position >= edit.length - 1 ? text.length : position;
    }

    // Where a caret at a position stands.
    function caretAt(position: int): rect {
        const caret = edit.positionToRectangle(Math.min(position, edit.length));
        return Qt.rect(edit.x + caret.x, Math.floor((caret.y + 1) / box) * box, 1, box);
    }

    function select(): void {
        const end = Math.min(selectionEnd, edit.length);
        const start = Math.min(selectionStart, end);
        // Selecting counts as a change of the text.
        if (isSelecting || (edit.selectionStart === start && edit.selectionEnd === end))
            return;
        isSelecting = true;
        edit.select(start, end);
        isSelecting = false;
    }

    function format(): void {
        lines.apply();
        select();
    }

    implicitHeight: edit.lineCount * box
    baselineOffset: Zen.baseline(size, box)
    onSelectionStartChanged: if (isReady) select()
    onSelectionEndChanged: if (isReady) select()
    Component.onCompleted: {
        isReady = true;
        format();
    }

    TextEdit {
        id: edit

        y: Zen.baseline(root.size, root.box) - lines.baseline
        width: root.width
        enabled: false
        readOnly: true
        textFormat: TextEdit.PlainText
        text: root.shown
        wrapMode: root.isLine ? TextEdit.NoWrap : TextEdit.Wrap
        color: root.color
        selectionColor: Zen.gray3
        selectedTextColor: Zen.gray9
        font.family: Zen.family
        font.pixelSize: root.size
        font.weight: Zen.medium
        onTextChanged: if (root.isReady) root.format()
        Accessible.ignored: true
    }
    LineHeight {
        id: lines

        document: edit.textDocument
        box: root.box
    }
}
