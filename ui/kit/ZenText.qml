import QtQuick

// Text in a line box of a fixed height, its baseline where Zen.baseline has it. What is written is what is shown:
// markup is never interpreted.
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
    // The leading stands below the line otherwise.
    topPadding: Zen.baseline(size, box) - Zen.ascent(size)
    bottomPadding: -topPadding
}
