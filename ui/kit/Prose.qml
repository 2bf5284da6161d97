import QtQuick
import Palomet.Kit

// Plain text that can be selected, in lines of a fixed height. Its owner says what is selected, because a selection may go
// on in other texts.
Item {
    id: root

    property string text
    property int size: 13
    property int box: 21
    property color color: Zen.gray9
    // The part of the text that shows, where it is one line that is cut. A position at the cut stands for the text's end.
    property string shown: text
    readonly property bool isElided: shown !== text
    property bool isLine: false
    property int selectionStart: 0
    property int selectionEnd: 0
    property bool isSelecting: false
    // Whether all properties are set: the text is laid out once, then.
    property bool isReady: false
    property alias lineCount: edit.lineCount

    // The position in the text that is nearest to a point.
    function positionAt(x: real, y: real): int {
        // In the middle of the line: the text does not count the space above the letters as the line.
        const line = Math.floor(Math.max(0, Math.min(height - 1, y)) / box);
        const position = edit.positionAt(Math.max(0, Math.min(width - 1, x)), (line + 0.5) * box - edit.y);
        return isElided && position >= edit.length - 1 ? text.length : position;
    }

    // The place of a caret at a position.
    function caretAt(position: int): rect {
        const caret = edit.positionToRectangle(Math.min(position, edit.length));
        return Qt.rect(edit.x + caret.x, Math.floor((caret.y + 1) / box) * box, 1, box);
    }

    function select(): void {
        const end = Math.min(selectionEnd, edit.length);
        const start = Math.min(selectionStart, end);
        // Selecting reports a change of the text.
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
