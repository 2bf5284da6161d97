import QtQuick
import Palomet.Kit
import Palomet.Ui

// How it speaks.
ColumnPage {
    id: root

    required property VoiceScreen screen

    actions: ZenButton {
        title: Words.t("button.sample")
        icon: "player-play"
        kind: ZenButtonStyle.Primary
        onClicked: root.screen.sample()
    }

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
