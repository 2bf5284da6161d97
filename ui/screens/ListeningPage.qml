pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// The listening pane: how it listens.
ColumnPage {
    id: root

    required property ListeningScreen screen

    SettingsBlock {
        group: root.screen.hearing
        row: SettingLine {
            id: line

            When {
                holds: line.modelData === root.screen.microphone

                MicMeter {
                    anchors.verticalCenter: parent?.verticalCenter
                    // The page may go first.
                    input: root?.screen.level ?? 0
                }
            }
        }
    }
    SettingsBlock {
        group: root.screen.calling

        RecorderRow {
            recorder: root.screen.listenShortcut
        }
        RecorderRow {
            recorder: root.screen.stopShortcut
        }

        after: When {
            holds: root.screen.keysNote.length > 0

            Column {
                width: root.columnWidth

                Gap {
                    height: Zen.space3
                }
                ZenNote {
                    width: parent.width
                    text: root.screen.keysNote
                }
            }
        }
    }
    SettingsBlock {
        group: root.screen.times
    }
}
