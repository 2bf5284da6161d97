import QtQuick

// A tool tip in a window of its own, above the middle of its host's window and no wider than that.
Window {
    id: root

    required property Item host
    required property string text

    x: host.Window.window.x + Math.round((host.Window.window.width - width) / 2)
    y: host.Window.window.y - height - Zen.space1
    width: box.width
    height: box.height
    // Where the compositor places windows above all others, it does so with this one, too.
    flags: Qt.ToolTip | Qt.WindowDoesNotAcceptFocus | Qt.BypassWindowManagerHint
    // Not the program's name, which is the title of its other windows.
    title: text
    color: Zen.gray0
    visible: true

    TipBox {
        id: box

        text: root.text
        limit: root.host.Window.window.width - 2 * Zen.space2
        radius: 0
    }
}
