import QtQuick

// Small capitals over blocks, groups and cells.
ZenText {
    size: 10
    box: 16
    color: Zen.noteInk
    font.weight: Zen.extraBold
    font.letterSpacing: 1.5
    font.capitalization: Font.AllUppercase
}
