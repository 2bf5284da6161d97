pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// One choice out of several. The box shows the current one; a press opens the list, if there are choices. Picking one only
// asks for it: the box changes when its owner says so.
Pressable {
    id: root

    // The current choice in words; it need not be among the choices.
    property string value
    // Each has an `id` and a `title`.
    property var choices: []
    property string selected
    property bool isBusy: false
    // Stands in the box while a choice is being applied.
    property string busyText
    property bool startOpen: false
    property bool isOpen: false
    property bool hasAppeared: false
    // Whether the list was opened by the press that still lasts.
    property bool isPressOpening: false
    property string name
    property string description
    // Where a long value or title is cut: at its right, or, for a path, in the middle.
    property int valueElide: Text.ElideRight

    signal picked(id: string)

    function open(): void {
        isOpen = choices.length > 0;
    }

    function close(): void {
        isOpen = false;
        isPressOpening = false;
    }

    function closeTo(reason: int): void {
        close();
        forceActiveFocus(reason);
    }

    implicitWidth: 200
    implicitHeight: Zen.control
    onPressed: {
        isPressOpening = !isOpen;
        open();
    }
    onClicked: {
        if (!isOpen)
            open();
        else if (!isPressOpening)
            close();
    }
    onReleased: isPressOpening = false
    onChoicesChanged: if (choices.length === 0) close()
    onEnabledChanged: if (!enabled) close()
    Exposure.onIsShownChanged: {
        if (!Exposure.isShown)
            close();
        else if (!hasAppeared && startOpen)
            open();
        hasAppeared = true;
    }

    Keys.onDownPressed: open()
    Keys.onUpPressed: open()

    Accessible.role: Accessible.ComboBox
    Accessible.name: name
    Accessible.description: box.shownValue + (description ? `. ${description}` : "")
    Accessible.onPressAction: clicked()

    ZenSelectBox {
        id: box

        anchors.fill: parent
        value: root.isBusy ? root.busyText : root.value
        isBusy: root.isBusy
        isOpen: root.isOpen
        isPointed: root.isPointed
        valueElide: root.valueElide
    }
    FocusRing {
        visible: root.isReached && !root.isOpen
    }
    When {
        holds: root.isOpen

        Item {
            SelectPopup {
                parent: root.Window.contentItem
                box: root
                choices: root.choices
                selected: root.selected
                name: root.name
                titleElide: root.valueElide
                isReached: root.isReached
                onPicked: (id, reason) => {
                    root.closeTo(reason);
                    root.picked(id);
                }
                onDismissed: reason => root.closeTo(reason)
                onPassed: isForward => {
                    root.close();
                    root.nextItemInFocusChain(isForward).forceActiveFocus(isForward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
                }
                onLost: root.close()
            }
        }
    }
}
