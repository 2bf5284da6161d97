import QtQuick
import Palomet.Kit

// The list of an open select, above everything else in its window: under its box, or over it where there is no room below.
// Escape or a press elsewhere dismisses it, Tab passes it; it is lost when its place or the focus changes.
FocusScope {
    id: root

    required property Pressable box
    required property var choices
    required property string selected
    required property string name
    property int titleElide: Text.ElideRight
    // Whether the keyboard opened it.
    property bool isReached: false
    property bool isPlaced: false
    // The letters typed within the typing time, which find a choice.
    property string typed

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

    // Moves to the next choice that begins with a text, `from` places behind the current one or later; false without one.
    // The text is declared var: qmllint 6.4 sometimes crashes where a string's own function is called.
    function find(text: var, from: int): bool {
        for (let step = from; step < from + choices.length; ++step) {
            const index = (list.current + step + choices.length) % choices.length;
            if (choices[index].title.toLocaleLowerCase().startsWith(text)) {
                move(index);
                return true;
            }
        }
        return false;
    }

    // Letters typed quickly form one text. One letter again and again goes from choice to choice instead.
    function type(text: var): void {
        const letter = text.toLocaleLowerCase();
        const before = typed;
        typed += letter;
        typing.restart();
        if (!find(typed, before ? 0 : 1) && before === letter.repeat(before.length))
            find(letter, 1);
    }

    // Points at the choice at a position, in the box's points, and returns it; -1 without one.
    function pointAt(position: point): int {
        const index = list.indexAt(box.mapToItem(list, position.x, position.y));
        if (index >= 0)
            list.point(index);
        return index;
    }

    function selectedIndex(): int {
        return Array.from(choices).findIndex(choice => choice.id === selected);
    }

    // The choices have changed while they show: the current one stays current, wherever it stands now.
    function keepPlace(): void {
        const index = Array.from(choices).findIndex(choice => choice.id === list.currentId);
        list.current = index >= 0 ? index : selectedIndex();
        if (list.current >= 0)
            list.reveal(list.current);
    }

    function place(): void {
        if (!box)
            return;
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
        list.current = selectedIndex();
        list.isReached = isReached;
        if (list.current >= 0)
            list.reveal(list.current);
        forceActiveFocus(Qt.PopupFocusReason);
        isPlaced = true;
    }
    onWidthChanged: if (isPlaced) lost()
    onHeightChanged: if (isPlaced) lost()
    onActiveFocusChanged: if (isPlaced && !activeFocus) lost()
    onChoicesChanged: if (isPlaced) keepPlace()

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
            pick(list.current);
            break;
        case Qt.Key_Space:
            if (typed)
                type(" ");
            else
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
                type(event.text);
        }
    }

    Timer {
        id: typing

        interval: Zen.typingTime
        onTriggered: root.typed = ""
    }
    // The press that opened the list picks the choice on which it is released.
    Connections {
        target: root.box

        function onDragged(position: point): void {
            root.pointAt(position);
        }
        function onReleased(position: point): void {
            const index = root.pointAt(position);
            if (index >= 0)
                root.pick(index);
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

        // The box may be destroyed first.
        width: root.box?.width ?? 0
        height: implicitHeight
        onImplicitHeightChanged: if (root.isPlaced) root.place()
        choices: root.choices
        selected: root.selected
        name: root.name
        titleElide: root.titleElide
        onPicked: index => root.pick(index)
        onPointed: index => point(index)
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
