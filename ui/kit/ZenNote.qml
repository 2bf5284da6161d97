import QtQuick

// Hints under rows and notes under blocks; they wrap and are never cut.
ZenText {
    box: 21
    color: Zen.noteInk
    wrapMode: Text.Wrap
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
