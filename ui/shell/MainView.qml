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
    readonly property ScreenPage page: panes.find(pane => pane.count > 0)?.itemAt(0) as ScreenPage ?? null
    readonly property var panes: [now, history, listening, voice, brain]

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
            id: now

            holds: root.pane === Navigation.Now

            NowPage {
                screen: root.app.now
            }
        }
        When {
            id: history

            holds: root.pane === Navigation.History

            HistoryPage {
                screen: root.app.history
            }
        }
        When {
            id: listening

            holds: root.pane === Navigation.Listening

            ListeningPage {
                screen: root.app.listening
            }
        }
        When {
            id: voice

            holds: root.pane === Navigation.Voice

            VoicePage {
                screen: root.app.voice
            }
        }
        When {
            id: brain

            holds: root.pane === Navigation.Brain

            BrainPage {
                screen: root.app.brain
            }
        }
    }
}
