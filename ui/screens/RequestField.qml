import QtQuick
import Palomet.Kit
import Palomet.Ui

// A request that is typed instead of spoken.
Row {
    id: root

    required property NowScreen screen

    width: parent ? parent.width : 0
    spacing: Zen.space2

    ZenFieldBox {
        width: root.width - send.width - root.spacing
        height: Zen.control
        isFocused: input.activeFocus

        ZenInput {
            id: input

            anchors.fill: parent
            text: root.screen.draft
            placeholder: Words.t("now.typeInstead")
            name: placeholder
            menu: menu
            onTextEdited: root.screen.draft = text
            onAccepted: root.screen.send()
            Keys.onEscapePressed: root.forceActiveFocus()
        }
        FieldMenu {
            id: menu

            input: input
        }
    }
    ZenButton {
        id: send

        title: Words.t("now.send")
        kind: ZenButtonStyle.Primary
        onClicked: root.screen.send()
    }
}
