pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// All of the window.
TwoColumns {
    id: root

    required property AppView app
    readonly property int pane: app.pane

    // The page that shows; null while another is made.
    function shownPage(): ScreenPage {
        return page.screens.find(screen => screen instanceof ScreenPage) ?? null;
    }

    // Goes on from a pane of the sidebar to the one above or below it, which is shown then.
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

    // Whether the page had a use for a key that nothing else had one for.
    function scroll(key: int): bool {
        return shownPage()?.scroller.handle(key) ?? false;
    }

    // Copies what is selected on the page, wherever the focus is; false where nothing is.
    function copy(): bool {
        return shownPage()?.selection?.copy() ?? false;
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
        id: page

        column: root.pane === Navigation.Now ? Zen.board : Zen.column
        crumb: "Palomet"
        title: root.app.title
        subtitle: root.app.subtitle
        actions: [
            When {
                holds: root.pane === Navigation.Now

                NowActions {
                    app: root.app
                }
            },
            When {
                holds: root.pane === Navigation.Voice

                ZenButton {
                    title: Words.t("button.sample")
                    icon: "player-play"
                    kind: ZenButtonStyle.Primary
                    onClicked: root.app.sample()
                }
            },
            When {
                holds: root.pane === Navigation.Brain

                ZenButton {
                    title: Words.t("button.openLog")
                    icon: "file-text"
                    onClicked: root.app.openLog()
                }
            }
        ]

        When {
            holds: root.pane === Navigation.Now

            NowPage {
                screen: root.app.now
                onIsRuledChanged: page.isScrolled = isRuled
            }
        }
        When {
            holds: root.pane === Navigation.History

            HistoryPage {
                screen: root.app.history
                onIsRuledChanged: page.isScrolled = isRuled
            }
        }
        When {
            holds: root.pane === Navigation.Listening

            ListeningPage {
                screen: root.app.listening
                onIsRuledChanged: page.isScrolled = isRuled
            }
        }
        When {
            holds: root.pane === Navigation.Voice

            VoicePage {
                screen: root.app.voice
                onIsRuledChanged: page.isScrolled = isRuled
            }
        }
        When {
            holds: root.pane === Navigation.Brain

            BrainPage {
                screen: root.app.brain
                onIsRuledChanged: page.isScrolled = isRuled
            }
        }
    }
}
