import QtQuick

// A tool tip in a window of its own, above the window of its host.
Window {
    id: root

    required property Item host
    required property string text

    x: host.Window.window.x
    y: host.Window.window.y - height - Zen.space1
    width: box.width
    height: box.height
    flags: Qt.ToolTip | Qt.WindowDoesNotAcceptFocus
    // Not the program's name, which is what its other windows are called.
    title: text
    color: Zen.gray0
    visible: true

    TipBox {
        id: box

        text: root.text
        radius: 0
    }
}
