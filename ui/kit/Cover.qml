import QtQuick

// Hides a part of the scrolled content. Its round corners, where nothing lies, keep it from being opaque: when an item comes
// to lie wholly under an opaque rectangle, the renderer does not erase what it drew of it before.
Rectangle {
    color: Zen.gray0
    radius: 1
}
