import QtQuick

// Hides a part of what is scrolled. Its corners are round, where nothing is: of what comes to lie wholly under an opaque
// rectangle, the renderer leaves behind what it drew before.
Rectangle {
    color: Zen.gray0
    radius: 1
}
