import QtQuick
import Palomet.Kit
import Palomet.Ui

// The actions of the now pane.
Row {
    id: root

    required property AppView app

    spacing: Zen.space2

    ZenButton {
        title: Words.t("button.newConversation")
        icon: "message-plus"
        onClicked: root.app.newConversation()
    }
    ZenButton {
        title: Words.t("menu.stop")
        icon: "player-stop"
        onClicked: root.app.stop()
    }
    ZenButton {
        title: Words.t("menu.listen")
        icon: "microphone"
        kind: ZenButtonStyle.Primary
        onClicked: root.app.listen()
    }
}
