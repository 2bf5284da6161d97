import QtQuick

// The list of an open select, above everything else in its window: under its box, or over it where there is no room. It
// is dismissed with Escape or a press elsewhere, passed with Tab, and lost with its place or the focus.
FocusScope {
    id: root

    required property Item box
    required property var choices
    required property string selected
    required property string name
    property int titleElide: Text.ElideRight
    // Whether the keyboard opened it.
    property bool isReached: false
    property bool isPlaced: false

    signal picked(id: string, reason: int)
    signal dismissed(reason: int)
    signal passed(isForward: bool)
    signal lost

    function move(to: int): void {
        if (choices.length === 0)
            return;
        list.isReached = true;
        list.current = Math.max(0, Math.min(choices.length - 1, to));
        list.reveal(list.current);
    }

    function pick(index: int): void {
        if (index < 0 || index >= choices.length)
            return;
        picked(choices[index].id, list.isReached ? Qt.TabFocusReason : Qt.MouseFocusReason);
    }

    // The next choice, from the current one on, that begins with what was typed, a text. It is not said to be one: at a
    // call of a text's own function qmllint 6.4 looks at what it has not set, and now and then crashes.
    function find(text: var): void {
        const wanted = text.toLocaleLowerCase();
        for (let step = 1; step <= choices.length; ++step) {
            const index = (list.current + step + choices.length) % choices.length;
            if (choices[index].title.toLocaleLowerCase().startsWith(wanted)) {
                move(index);
                return;
            }
        }
    }

    function place(): void {
        const corner = box.mapToItem(parent, 0, 0);
        const below = corner.y + box.height + Zen.space1;
        const above = corner.y - Zen.space1 - list.implicitHeight;
        list.x = corner.x;
        list.y = below + list.implicitHeight <= height || above < 0 ? below : above;
    }

    anchors.fill: parent
    z: 1
    focus: true
    Component.onCompleted: {
        place();
        list.current = Array.from(choices).findIndex(choice => choice.id === selected);
        list.isReached = isReached;
        if (list.current >= 0)
            list.reveal(list.current);
        forceActiveFocus(Qt.PopupFocusReason);
        isPlaced = true;
    }
    onWidthChanged: if (isPlaced) lost()
    onHeightChanged: if (isPlaced) lost()
    onActiveFocusChanged: if (isPlaced && !activeFocus) lost()

    Keys.onPressed: event => {
        event.accepted = true;
        switch (event.key) {
        case Qt.Key_Down:
            move(list.current + 1);
            break;
        case Qt.Key_Up:
            move(list.current < 0 ? choices.length - 1 : list.current - 1);
            break;
        case Qt.Key_Home:
            move(0);
            break;
        case Qt.Key_End:
            move(choices.length - 1);
            break;
        case Qt.Key_PageDown:
            move(list.current + list.mostShown);
            break;
        case Qt.Key_PageUp:
            move(list.current - list.mostShown);
            break;
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            pick(list.current);
            break;
        case Qt.Key_Escape:
            dismissed(Qt.TabFocusReason);
            break;
        case Qt.Key_Tab:
        case Qt.Key_Backtab:
            passed(event.key === Qt.Key_Tab);
            break;
        default:
            if (event.text)
                find(event.text);
        }
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.AllButtons
        onPressed: root.dismissed(Qt.MouseFocusReason)
        onWheel: wheel => wheel.accepted = true
    }
    SelectList {
        id: list

        width: root.box.width
        height: implicitHeight
        choices: root.choices
        selected: root.selected
        name: root.name
        titleElide: root.titleElide
        onPicked: index => root.pick(index)
        onPointed: index => {
            isReached = false;
            current = index;
        }
    }
    NumberAnimation {
        target: list
        property: "opacity"
        running: !Zen.isMotionReduced
        from: 0
        to: 1
        duration: Zen.moveTime
        easing.type: Easing.OutCubic
    }
}
