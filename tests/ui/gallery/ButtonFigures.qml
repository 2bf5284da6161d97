pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// A button in the states that the model names.
Repeater {
    id: root

    required property string title
    required property string icon
    property int kind: ZenButtonStyle.Secondary

    Figure {
        id: figure

        required property string modelData

        caption: modelData

        ZenButton {
            title: root.title
            icon: root.icon
            kind: root.kind
            enabled: figure.modelData !== "disabled"
            isPointed: figure.modelData === "hover"
            isHeld: figure.modelData === "pressed"
            isReached: figure.modelData === "focused"
        }
    }
}
