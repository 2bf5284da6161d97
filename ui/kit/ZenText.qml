import QtQuick

// Plain text in a line box of a fixed height, its baseline where Zen.baseline has it.
Text {
    property int size: 13
    property int box: 20

    textFormat: Text.PlainText
    color: Zen.gray9
    font.family: Zen.family
    font.pixelSize: size
    font.weight: Zen.medium
    lineHeightMode: Text.FixedHeight
    lineHeight: box
    // Without it, all of the leading would stand below the line.
    topPadding: Zen.baseline(size, box) - Zen.ascent(size)
    bottomPadding: -topPadding
}
