import QtQuick

// A line of text to edit. Return commits it, trimmed, where it is not empty and has changed. Leaving it any other way
// restores its value; switching to another window does not leave it.
Item {
    id: root

    property string value
    property string placeholder
    property string name
    property string description
    // The text as it is being typed.
    property alias draft: input.text
    readonly property alias input: input
    property alias menu: input.menu
    property alias isPointed: look.isPointed
    property alias isFocused: look.isFocused
    property bool isEditing: false
    // A committed text is being applied; `busyText` says so at the end of the line.
    property bool isBusy: false
    property string busyText

    signal committed(text: string)

    function commit(): void {
        const text = draft.trim();
        if (text !== "" && text !== value)
            committed(text);
        leave();
    }

    // The focus stays here, so that Tab goes on from this field.
    function leave(): void {
        forceActiveFocus();
    }

    implicitWidth: 240
    implicitHeight: Zen.control
    onValueChanged: if (!isEditing) draft = value
    onIsEditingChanged: if (!isEditing) draft = value
    Component.onCompleted: draft = value

    ZenFieldBox {
        id: look

        anchors.fill: parent
        isFocused: input.activeFocus

        ZenInput {
            id: input

            anchors.fill: parent
            placeholder: root.placeholder
            name: root.name
            description: root.isBusy ? `${root.busyText} ${root.description}` : root.description
            rightPadding: busy.visible ? root.width - busy.x + Zen.space2 : Zen.space3
            color: busy.visible ? Zen.noteInk : Zen.gray9
            onAccepted: root.commit()
            Keys.onEscapePressed: root.leave()
            onActiveFocusChanged: {
                if (activeFocus)
                    root.isEditing = true;
                else if (root.Window.active || !root.Window.window?.visible)
                    root.isEditing = false;
            }
        }
    }
    ZenData {
        id: busy

        x: root.width - width - Zen.space3
        visible: root.isBusy && !root.isEditing
        text: root.busyText
        size: 12
        box: root.height
        color: Zen.noteInk
        Accessible.ignored: true
    }
}
