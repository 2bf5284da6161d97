import QtQuick
import Palomet.Kit

// A button: dark for the page's main action, light for all others.
Pressable {
    id: root

    property string title
    property string icon
    property int kind: ZenButtonStyle.Secondary
    property int size: Zen.control
    property string name: title
    property string description

    readonly property int inset: size < Zen.control ? Zen.space3 : Zen.space4

    // Whole points: an end between two pixels is blurred.
    implicitWidth: Math.ceil(words.x + words.width + inset)
    implicitHeight: size

    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.description: description
    Accessible.onPressAction: clicked()

    ZenButtonStyle {
        id: ground

        anchors.fill: parent
        kind: root.kind
        isPointed: root.isPointed
        isHeld: root.isHeld
    }
    ButtonLabel {
        id: words

        x: root.icon ? Zen.space3 : root.inset
        anchors.verticalCenter: parent.verticalCenter
        title: root.title
        icon: root.icon
        size: root.size < Zen.control ? 12 : 13
        color: ground.ink
    }
    FocusRing {
        visible: root.isReached
    }
}
