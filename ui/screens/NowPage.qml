pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// The now pane: the state of the loop, the conversation, a request to type, the draft and what was heard.
ListPage {
    id: root

    required property NowScreen screen
    // Whether the newest turn is kept in view. It is until the user scrolls it out of view.
    property bool isFollowing: true
    property bool isMoved: false

    function follow(): void {
        // Scrolling there from the top would make every row on the way.
        if (isFollowing && rows.count > 0 && !rows.itemAtIndex(rows.count - 1))
            rows.positionViewAtEnd();
        const target = rows.count === 0 ? scroller.first : footY + request.y + request.height + Zen.space4 - view.height;
        // Content below the newest turn that the user has scrolled to stays where it is.
        if (isFollowing && (!isMoved || target > view.contentY))
            scroller.scrollTo(target);
    }

    column: Zen.board
    actions: [
        ZenButton {
            title: Words.t("button.newConversation")
            icon: "message-plus"
            onClicked: root.screen.newConversation()
        },
        ZenButton {
            title: Words.t("menu.stop")
            icon: "player-stop"
            onClicked: root.screen.stop()
        },
        ZenButton {
            title: Words.t("menu.listen")
            icon: "microphone"
            kind: ZenButtonStyle.Primary
            onClicked: root.screen.listen()
        }
    ]
    model: screen.rows
    listName: Words.t("now.conversation")
    emptyText: screen.shown.emptyText
    note: rows.count === 0 ? screen.shown.rememberedText : ""
    scroller.onScrolled: {
        isMoved = true;
        isFollowing = scroller.isEndWanted || rowsEnd <= view.contentY + view.height + 1;
        if (scroller.isEndWanted)
            settling.restart();
    }
    scroller.onFirstChanged: settling.restart()
    onFootYChanged: settling.restart()
    onHeightChanged: settling.restart()

    scroller.covered: state.visible ? state.height : 0

    head: [
        StateCells {
            id: cells

            isStateShown: !state.visible
            width: root.columnWidth
            screen: root.screen
        },
        Gap {
            height: Zen.space6
        },
        ListHead {
            title: Words.t("now.lastAnswer")
        }
    ]
    delegate: ConversationRow {
        required property int index

        x: Zen.space7
        width: root.columnWidth
        isFirst: index === 0
        selectionStart: root.words.startIn(index, root.words.revision)
        selectionEnd: root.words.endIn(index, root.words.revision)
    }
    foot: [
        Gap {
            height: Zen.space4
        },
        RequestField {
            id: request

            width: root.columnWidth
            screen: root.screen
        },
        DraftBlock {
            id: draft

            width: root.columnWidth
            screen: root.screen
            page: root
            position: root.footY + y
        },
        HeardBlock {
            width: root.columnWidth
            screen: root.screen
            page: root
            position: root.footY + y
        }
    ]

    // Shows the state while its cell is scrolled away, even in part.
    StateLine {
        id: state

        z: 1
        width: root.width
        visible: root.view.contentY - root.scroller.first > Zen.space2 + Zen.space3
        column: root.columnWidth
        screen: root.screen
    }
    // Later: scrolling makes rows, whose heights move the end of the newest turn.
    Timer {
        id: settling

        interval: 0
        onTriggered: root.follow()
    }
}
