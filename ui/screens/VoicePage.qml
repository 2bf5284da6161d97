import QtQuick
import Palomet.Ui

// How it speaks.
ColumnPage {
    id: root

    required property VoiceScreen screen

    SettingsBlock {
        title: "Fish Audio"

        TextRow {
            setting: root.screen.voice
            boxWidth: 320
        }
        TextRow {
            setting: root.screen.name
        }
        ChoiceRow {
            setting: root.screen.speed
            boxWidth: 160
        }
        ChoiceRow {
            setting: root.screen.fishModel
        }
    }
    SettingsBlock {
        title: Words.t("voice.offlineBlock")

        ChoiceRow {
            setting: root.screen.systemVoice
        }
    }
}
