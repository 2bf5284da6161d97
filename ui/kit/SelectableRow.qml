import QtQuick

// A row of a list whose words can be selected.
ZenRow {
    required property Prose prose
    // The selected part of the words.
    property int selectionStart: 0
    property int selectionEnd: 0

    // A row that the view keeps for later use is hidden from a screen reader, too.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true
}
