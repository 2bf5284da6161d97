import QtQuick
import Palomet.Kit
import Palomet.Ui

// The menu of a field. It lies over the field and takes the right button there, and the keys that the field forwards to its
// `menu` first.
MouseArea {
    id: root

    required property ZenInput input

    anchors.fill: parent
    acceptedButtons: Qt.RightButton
    onPressed: event => {
        input.forceActiveFocus(Qt.MouseFocusReason);
        const position = input.positionAt(event.x);
        if (position < input.selectionStart || position > input.selectionEnd)
            input.cursorPosition = position;
        menu.open(root, event.x, event.y, false);
    }
    Keys.forwardTo: [menu]

    MenuHost {
        id: menu

        onOpening: entries = [
            {id: "undo", title: Words.t("text.undo"), keys: Words.t("text.undo.keys"), isOn: root.input.canUndo},
            {id: "redo", title: Words.t("text.redo"), keys: Words.t("text.redo.keys"), isOn: root.input.canRedo},
            {id: "cut", title: Words.t("text.cut"), keys: Words.t("text.cut.keys"), isOn: root.input.selectedText !== ""},
            {id: "copy", title: Words.t("text.copy"), keys: Words.t("text.copy.keys"), isOn: root.input.selectedText !== ""},
            {id: "paste", title: Words.t("text.paste"), keys: Words.t("text.paste.keys"), isOn: root.input.canPaste},
            {id: "all", title: Words.t("text.selectAll"), keys: Words.t("text.selectAll.keys"), isOn: root.input.length > 0}
        ]
        onWanted: menu.open(root.input, root.input.cursorRectangle.x, root.input.height, true)
        onPicked: id => {
            switch (id) {
            case "undo":
                root.input.undo();
                break;
            case "redo":
                root.input.redo();
                break;
            case "cut":
                root.input.cut();
                break;
            case "copy":
                root.input.copy();
                break;
            case "paste":
                root.input.paste();
                break;
            case "all":
                root.input.selectAll();
                break;
            }
        }
    }
}
