import QtQuick

// A row of a list with words that can be selected.
ZenRow {
    required property Prose prose
    // What is selected of them.
    property int selectionStart: 0
    property int selectionEnd: 0

    // Kept by its view for later use, it is not there for a screen reader either.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true
}
