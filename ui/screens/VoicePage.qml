import QtQuick
import Palomet.Kit
import Palomet.Ui

// The voice pane: how it speaks.
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
        group: root.screen.online
    }
    SettingsBlock {
        group: root.screen.offline
    }
}
