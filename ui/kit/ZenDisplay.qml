import QtQuick

// Tight headings and the big values of cells. A line hangs by its own left bearing, so that its ink begins on the margin
// whatever its first letter is; `isHung` turns that off where something stands before it.
ZenText {
    id: root

    property bool isHung: false

    size: 22
    box: 28
    font.weight: Zen.black
    font.letterSpacing: -0.04 * size
    leftPadding: isHung ? -Math.round(metrics.tightBoundingRect.x) : 0

    TextMetrics {
        id: metrics

        font: root.font
        text: root.text
    }
}
