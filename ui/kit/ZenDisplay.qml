import QtQuick

// Tight headings and the big values of cells. Hung, a line begins with its ink, not its left bearing, on the margin,
// whatever its first letter is.
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
