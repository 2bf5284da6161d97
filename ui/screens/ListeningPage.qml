import QtQuick
import Palomet.Kit
import Palomet.Ui

// How it listens.
ColumnPage {
    id: root

    required property ListeningScreen screen

    SettingsBlock {
        title: Words.t("listening.micBlock")

        SwitchRow {
            setting: root.screen.echo
        }
        ChoiceRow {
            setting: root.screen.microphone
            boxWidth: 240

            MicMeter {
                anchors.verticalCenter: parent.verticalCenter
                input: root.screen.level
            }
        }
        ChoiceRow {
            setting: root.screen.transcription
            boxWidth: 240
        }
    }
    SettingsBlock {
        title: Words.t("listening.callBlock")

        SwitchRow {
            setting: root.screen.directed
        }
        SwitchRow {
            setting: root.screen.draft
        }
        TextRow {
            setting: root.screen.actionPhrase
        }
        ChoiceRow {
            setting: root.screen.draftAge
            boxWidth: 160
        }
        TextRow {
            setting: root.screen.names
            boxWidth: 320
        }
        RecorderRow {
            recorder: root.screen.listenShortcut
        }
        RecorderRow {
            recorder: root.screen.stopShortcut
        }
    }
    SettingsBlock {
        title: Words.t("listening.timesBlock")

        ChoiceRow {
            setting: root.screen.endSilence
            boxWidth: 160
        }
        ChoiceRow {
            setting: root.screen.followUp
            boxWidth: 160
        }
        ChoiceRow {
            setting: root.screen.summon
            boxWidth: 160
        }
        ChoiceRow {
            setting: root.screen.echoGuard
            boxWidth: 160
        }
    }
}
