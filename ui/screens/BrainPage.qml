pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// The brain pane: how it thinks, and what it may do.
ColumnPage {
    id: root

    required property BrainScreen screen

    actions: ZenButton {
        title: Words.t("button.openLog")
        icon: "file-text"
        onClicked: root.screen.openLog()
    }

    SettingsBlock {
        group: root.screen.session

        SettingRow {
            id: whenDown

            title: Words.t("brain.whenDown")
            hint: Words.t("brain.whenDown.hint")

            SettingValue {
                name: whenDown.title
                description: whenDown.hint
                text: Words.t("brain.whenDown.value")
            }
        }
    }
    SettingsBlock {
        title: Words.t("brain.confirmBlock")
        // Without actions, a heading would suggest that something is missing.
        visible: actions.count > 0

        Repeater {
            id: actions

            model: root.screen.confirmActions

            SettingRow {
                id: confirm

                required property string actionId
                required property string label
                required property bool isOn

                title: label
                buddy: control

                ZenSwitch {
                    id: control

                    anchors.verticalCenter: parent.verticalCenter
                    name: confirm.label
                    stateText: Words.t(isOn ? "brain.confirm.on" : "brain.confirm.off")
                    isOn: confirm.isOn
                    onToggled: isOn => root.screen.setConfirmed(confirm.actionId, isOn)
                }
            }
        }
    }
    SettingsBlock {
        title: Words.t("brain.foldersBlock")

        SettingRow {
            id: workingFolder

            title: root.screen.workingFolder
            titleElide: Text.ElideMiddle
            hint: Words.t("brain.workingFolder.hint")

            SettingValue {
                name: workingFolder.title
                description: workingFolder.hint
                text: Words.t("brain.always")
            }
        }
        Repeater {
            model: root.screen.folders

            SettingRow {
                id: folderRow

                required property string folder
                required title

                titleElide: Text.ElideMiddle

                ZenButton {
                    anchors.verticalCenter: parent.verticalCenter
                    title: Words.t("button.remove")
                    name: `${title} ${folderRow.title}`
                    size: Zen.controlSmall
                    onClicked: root.screen.removeFolder(folderRow.folder)
                }
            }
        }

        after: [
            Gap {
                height: Zen.space3
            },
            ZenButton {
                title: Words.t("button.addFolder")
                icon: "folder-plus"
                onClicked: root.screen.addFolder()
            },
            Gap {
                height: Zen.space5
            },
            ZenNote {
                width: root.columnWidth
                text: Words.t("brain.note")
            }
        ]
    }
}
