import QtQuick

// Running text.
ZenText {
    size: 15
    box: 24
    wrapMode: Text.Wrap
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
