import QtQuick
import Palomet.Kit
import Palomet.Ui

// Lies over the rows of a list and selects their words, by pointer and by keys. Each row has a `prose`, and binds its
// selection to this one's.
Pressable {
    id: root

    required property ListView list
    required property ScreenPage page
    required property string name
    property alias model: words.model
    property alias textRole: words.textRole
    readonly property TextSelection selection: words
    readonly property Scroller scroller: page.scroller

    // Null where the row is not shown.
    function proseOf(row: int): Prose {
        const item = list.itemAtIndex(row) as SelectableRow;
        return item ? item.prose : null;
    }

    // The place that is nearest to a point, among the rows that show.
    function placeAt(x: real, y: real): var {
        const at = list.contentY + Math.max(0, Math.min(list.height - 1, root.y + y - list.contentY));
        const row = list.indexAt(root.x + 1, Math.max(root.y, Math.min(root.y + root.height - 1, at)));
        const prose = proseOf(row);
        if (!prose)
            return null;
        const point = mapToItem(prose, x, at - root.y);
        return {row, position: prose.positionAt(point.x, point.y), isOnText: prose.contains(point)};
    }

    // The beginning of the first line that shows.
    function firstPlace(): var {
        const top = page.view.mapToItem(root, 0, scroller.covered + Zen.space5).y;
        return placeAt(Zen.roleColumn, Math.max(1, top));
    }

    function caretIn(row: int, position: int): rect {
        const prose = proseOf(row);
        return prose ? prose.mapToItem(root, prose.caretAt(position)) : Qt.rect(0, 0, 0, 0);
    }

    function reveal(): void {
        if (!proseOf(words.caretRow))
            list.positionViewAtIndex(words.caretRow, ListView.Contain);
        const caret = caretIn(words.caretRow, words.caretPosition);
        const top = mapToItem(page.view.contentItem, 0, caret.y).y;
        scroller.show(top, top + caret.height);
    }

    // The visible part of the rows. Bindings pass the positions of the page and the list, on which it depends.
    function shownPart(_page: real, _list: real): rect {
        const top = page.view.mapToItem(root, 0, scroller.covered).y;
        const from = Math.max(0, top);
        const to = Math.min(height, top - scroller.covered + page.view.height);
        return Qt.rect(0, from, width, Math.max(0, to - from));
    }

    function takeOver(): void {
        if (page.selection !== words)
            page.selection?.clear();
        page.selection = words;
    }

    // Moves into the line above or below, at the same distance from the margin.
    function moveLine(step: int, isExtending: bool): void {
        let row = words.caretRow;
        let prose = proseOf(row);
        if (!prose)
            return;
        const caret = prose.caretAt(words.caretPosition);
        let y = caret.y + caret.height / 2 + step * prose.box;
        if (y < 0 || y > prose.height) {
            row += step;
            prose = proseOf(row);
            y = step > 0 ? 0 : prose?.height ?? 0;
        }
        if (!prose)
            moveTo(words.caretRow, step > 0 ? 1e9 : 0, isExtending);
        else
            moveTo(row, prose.positionAt(caret.x, y), isExtending);
    }

    function moveToLineEnd(isForward: bool): void {
        const prose = proseOf(words.caretRow);
        const y = prose ? prose.caretAt(words.caretPosition).y + 1 : 0;
        if (prose)
            words.extendTo(words.caretRow, prose.positionAt(isForward ? prose.width : 0, y));
    }

    function moveTo(row: int, position: int, isExtending: bool): void {
        if (isExtending)
            words.extendTo(row, position);
        else
            words.begin(row, position);
    }

    // Does what a key asks of the selection; false for a key that asks nothing.
    function handle(event: var): bool {
        const isExtending = (event.modifiers & Qt.ShiftModifier) !== 0;
        const isByWord = (event.modifiers & Qt.ControlModifier) !== 0;
        const isForward = event.key === Qt.Key_Right || event.key === Qt.Key_Down || event.key === Qt.Key_End;
        if (event.matches(StandardKey.SelectAll)) {
            words.selectAll();
            return true;
        }
        if (event.matches(StandardKey.Copy))
            return words.copy();
        if (event.key === Qt.Key_Escape)
            return words.clear();
        const isSideways = event.key === Qt.Key_Left || event.key === Qt.Key_Right;
        const isExtended = event.key === Qt.Key_Up || event.key === Qt.Key_Down || event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (!isSideways && !(isExtended && isExtending))
            return false;
        if (!words.hasCaret) {
            const first = firstPlace();
            if (!first)
                return false;
            words.begin(first.row, first.position);
            if (!isExtending)
                return true;
        }
        if (!proseOf(words.caretRow))
            reveal();
        if (isSideways)
            words.move(isByWord ? TextSelection.Word : TextSelection.Character, isForward, isExtending);
        else if (event.key === Qt.Key_Up || event.key === Qt.Key_Down)
            moveLine(isForward ? 1 : -1, true);
        else if (isByWord)
            words.extendTo(isForward ? list.count - 1 : 0, isForward ? 1e9 : 0);
        else
            moveToLineEnd(isForward);
        reveal();
        return true;
    }

    y: list.originY
    width: list.width
    height: list.contentHeight
    z: 1
    enabled: list.count > 0

    Accessible.role: Accessible.Pane
    Accessible.name: name

    Keys.forwardTo: [menu]
    Keys.onPressed: event => {
        event.accepted = handle(event);
        if (event.accepted)
            takeOver();
    }

    TextSelection {
        id: words
    }
    MenuHost {
        id: menu

        onOpening: entries = [
            {id: "copy", title: Words.t("text.copy"), keys: Words.t("text.copy.keys"), isOn: !words.isEmpty},
            {id: "all", title: Words.t("text.selectAll"), keys: Words.t("text.selectAll.keys"), isOn: true}
        ]
        onWanted: {
            const caret = root.caretIn(words.caretRow, words.caretPosition);
            const shown = root.shownPart(0, 0);
            menu.open(root, caret.x, Math.max(shown.y, Math.min(shown.y + shown.height, caret.y + caret.height)), true);
        }
        onPicked: id => {
            if (id === "copy")
                words.copy();
            else
                words.selectAll();
        }
    }
    HoverHandler {
        cursorShape: root.placeAt(point.position.x, point.position.y)?.isOnText ? Qt.IBeamCursor : Qt.ArrowCursor
    }
    MouseArea {
        id: mouse

        property double secondPress: 0
        property point pointer

        function extend(): void {
            const place = root.placeAt(pointer.x, pointer.y);
            if (place)
                words.extendTo(place.row, place.position);
        }

        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        preventStealing: true
        onPressed: event => {
            root.forceActiveFocus(Qt.MouseFocusReason);
            root.takeOver();
            const place = root.placeAt(event.x, event.y);
            if (!place)
                return;
            pointer = Qt.point(event.x, event.y);
            if (event.button === Qt.RightButton) {
                if (!words.contains(place.row, place.position))
                    words.begin(place.row, place.position);
                menu.open(root, event.x, event.y, false);
            } else if (event.modifiers & Qt.ShiftModifier) {
                words.extendTo(place.row, place.position);
            } else if (Date.now() - secondPress < Application.styleHints.mouseDoubleClickInterval) {
                words.selectRow(place.row);
            } else {
                words.begin(place.row, place.position);
            }
        }
        onDoubleClicked: event => {
            const place = root.placeAt(event.x, event.y);
            if (!place || event.button !== Qt.LeftButton)
                return;
            secondPress = Date.now();
            words.selectWord(place.row, place.position);
        }
        onPositionChanged: event => {
            // The pointer may tremble during a press.
            if (Math.abs(event.x - pointer.x) + Math.abs(event.y - pointer.y) < 3 && !dragging.running)
                return;
            pointer = Qt.point(event.x, event.y);
            if (pressedButtons & Qt.LeftButton) {
                dragging.start();
                extend();
            }
        }
        onReleased: {
            dragging.stop();
            words.offer();
        }
        onCanceled: dragging.stop()
    }
    // Dragging beyond the page's edge scrolls the page.
    Timer {
        id: dragging

        interval: 50
        repeat: true
        onTriggered: {
            const y = root.mapToItem(root.page.view, 0, mouse.pointer.y).y;
            const beyond = y < root.scroller.covered ? y - root.scroller.covered : Math.max(0, y - root.page.view.height);
            if (beyond === 0)
                return;
            const before = root.page.view.contentY;
            root.scroller.scrollBy(Math.max(-Zen.space7, Math.min(Zen.space7, beyond)));
            mouse.pointer.y += root.page.view.contentY - before;
            mouse.extend();
        }
    }
    Rectangle {
        readonly property rect place: root.activeFocus && words.hasCaret && root.list.contentHeight ? root.caretIn(words.caretRow, words.caretPosition) : Qt.rect(0, 0, 0, 0)

        x: place.x
        y: place.y + 3
        width: 1
        height: Math.max(0, place.height - 6)
        visible: place.height > 0
        color: Zen.gray9
    }
    Item {
        // The visible part of the rows, which the ring surrounds.
        readonly property rect shown: root.shownPart(root.page.view.contentY, root.list.contentY)

        x: -Zen.space2
        y: shown.y
        width: root.width + 2 * Zen.space2
        height: shown.height
        visible: root.isReached

        FocusRing {
            isInside: true
        }
    }
}
