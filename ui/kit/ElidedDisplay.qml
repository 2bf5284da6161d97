import QtQuick

// A big value, cut where it does not fit.
ElidedText {
    size: 22
    box: 28
    font.weight: Zen.black
    font.letterSpacing: -0.04 * size
}
