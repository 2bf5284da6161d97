pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// All of the window.
MacShellView {
    id: root

    required property AppView app
    readonly property int pane: app.pane

    sidebar: MacSidebar {
        anchors.fill: parent
        app: "Palomet"
        version: root.app.version
        Accessible.role: Accessible.PageTabList

        Repeater {
            model: root.app.groups

            MacSidebarGroup {
                id: group

                required property var modelData

                title: modelData.title

                Repeater {
                    model: group.modelData.panes

                    MacSidebarItem {
                        required property var modelData

                        icon: modelData.icon
                        title: modelData.title
                        badge: modelData.pane === Navigation.History ? root.app.historyBadge : ""
                        isActive: modelData.pane === root.pane
                        onClicked: root.app.navigation.pane = modelData.pane
                    }
                }
            }
        }
        status: MacStatusLine {
            isOn: root.app.isMicOn
            textOn: Words.t("status.micOn")
            textOff: Words.t("status.micOff")
            onFix: root.app.fixMicrophone()
        }
    }

    MacPage {
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
                onIsScrolledChanged: page.isScrolled = isScrolled
            }
        }
        When {
            holds: root.pane === Navigation.History

            HistoryPage {
                screen: root.app.history
                onIsScrolledChanged: page.isScrolled = isScrolled
            }
        }
        When {
            holds: root.pane === Navigation.Listening

            ListeningPage {
                screen: root.app.listening
                onIsScrolledChanged: page.isScrolled = isScrolled
            }
        }
        When {
            holds: root.pane === Navigation.Voice

            VoicePage {
                screen: root.app.voice
                onIsScrolledChanged: page.isScrolled = isScrolled
            }
        }
        When {
            holds: root.pane === Navigation.Brain

            BrainPage {
                screen: root.app.brain
                onIsScrolledChanged: page.isScrolled = isScrolled
            }
        }
    }
}
