import QtQuick

// One glyph of the outline icon set, in one colour, drawn for the screen's own pixels.
Image {
    property string name
    property int size: Zen.icon
    property color color: Zen.gray9

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    source: name ? `image://icon/${name}/${color.toString().slice(-6)}` : ""
}
