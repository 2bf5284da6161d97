pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// All of the window.
TwoColumns {
    id: root

    required property AppView app
    readonly property int pane: app.pane
    // The page that shows; null while another is being made.
    property ScreenPage page: null
    // A page is made when its pane is to show, and goes with it.
    readonly property var pages: ({
            [Navigation.Now]: now,
            [Navigation.History]: history,
            [Navigation.Listening]: listening,
            [Navigation.Voice]: voice,
            [Navigation.Brain]: brain
        })

    // Goes from a pane of the sidebar to the one above or below it, and shows that.
    function walk(from: int, step: int): void {
        const items = [];
        for (let i = 0; i < groups.count; ++i)
            items.push(...(groups.itemAt(i) as SidebarGroup).panes);
        const to = items.find(item => item instanceof SidebarItem && item["modelData"].pane === from + step);
        if (!to)
            return;
        to.forceActiveFocus(Qt.TabFocusReason);
        to.clicked();
    }

    // Gives the page a key that nothing else has taken; false where the page does not take it either.
    function scroll(key: int): bool {
        return page?.scroller.handle(key) ?? false;
    }

    // Copies what is selected on the page, wherever the focus is; false where nothing is.
    function copy(): bool {
        return page?.selection?.copy() ?? false;
    }

    sidebar: Sidebar {
        anchors.fill: parent
        app: "Palomet"
        version: root.app.version
        Accessible.role: Accessible.PageTabList

        Repeater {
            id: groups

            model: root.app.groups

            SidebarGroup {
                id: group

                required property var modelData

                title: modelData.title

                Repeater {
                    model: group.modelData.panes

                    SidebarItem {
                        required property var modelData

                        icon: modelData.icon
                        title: modelData.title
                        badge: modelData.pane === Navigation.History ? root.app.historyBadge : ""
                        isActive: modelData.pane === root.pane
                        onClicked: root.app.navigation.pane = modelData.pane
                        onWalked: step => root.walk(modelData.pane, step)
                    }
                }
            }
        }
        status: MicrophoneLine {
            isOn: root.app.isMicOn
            textOn: Words.t("status.micOn")
            textOff: Words.t("status.micOff")
            onFix: root.app.fixMicrophone()
        }
    }

    PageFrame {
        column: root.page?.column ?? Zen.column
        isScrolled: root.page?.isRuled ?? false
        crumb: "Palomet"
        title: root.app.title
        subtitle: root.app.subtitle
        actions: root.page?.actions ?? []

        When {
            holds: true
            delegate: root.pages[root.pane]
            onItemAdded: (_, item) => root.page = item as ScreenPage
            onItemRemoved: root.page = null
        }
    }
    Component {
        id: now

        NowPage {
            screen: root.app.now
        }
    }
    Component {
        id: history

        HistoryPage {
            screen: root.app.history
        }
    }
    Component {
        id: listening

        ListeningPage {
            screen: root.app.listening
        }
    }
    Component {
        id: voice

        VoicePage {
            screen: root.app.voice
        }
    }
    Component {
        id: brain

        BrainPage {
            screen: root.app.brain
        }
    }
}
