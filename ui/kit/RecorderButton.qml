import QtQuick
import Palomet.Kit

// The key recorder's control in each of its states: the caps of the shortcut, or a capsule, over one line of words.
Column {
    id: root

    property var caps: []
    property bool isRecording: false
    // The capsule's words without a shortcut, and while recording.
    property string noneText
    property string typeText
    property string hint
    // The last refusal, shown in the hint's place.
    property string message
    property string toolTip
    property string name
    // The shortcut in words.
    property string spoken
    property string description
    property alias button: button
    readonly property bool showsKeys: !isRecording && caps.length > 0

    signal clicked

    width: Zen.controlColumn

    Item {
        width: parent.width
        height: Zen.control

        Pressable {
            id: button

            x: -Zen.space1
            y: 2
            width: (root.showsKeys ? keys.width : capsule.width) + 2 * Zen.space1
            height: 32
            onClicked: root.clicked()

            Accessible.role: Accessible.Button
            Accessible.name: root.name
            Accessible.description: `${root.isRecording ? root.typeText : root.spoken || root.noneText}. ${root.message || root.hint} ${root.description}`
            Accessible.onPressAction: clicked()

            SoftBox {
                anchors.fill: parent
                radius: Zen.radius2
                color: button.isPointed && !root.isRecording ? Zen.gray2 : Zen.gray0
            }
            Caps {
                id: keys

                x: Zen.space1
                y: Zen.space1
                visible: root.showsKeys
                caps: root.caps
            }
            SoftBox {
                id: capsule

                x: Zen.space1
                y: Zen.space1
                width: words.implicitWidth + 2 * (10 + 1)
                height: Zen.cap
                visible: !root.showsKeys
                radius: Zen.radiusFull
                color: root.isRecording ? Zen.gray9 : button.isPointed ? Zen.gray2 : Zen.gray0
                edge: root.isRecording ? Zen.gray9 : button.isPointed ? Zen.edgePointed : Zen.edge
                edgeWidth: root.isRecording ? 1.5 : 1

                ZenText {
                    id: words

                    anchors.centerIn: parent
                    text: root.isRecording ? root.typeText : root.noneText
                    size: 11
                    box: 16
                    color: root.isRecording ? Zen.gray0 : button.isPointed ? Zen.bodyInk : Zen.noteInk
                    font.weight: Zen.bold
                }
            }
            FocusRing {
                visible: button.isReached
            }
            ToolTip {
                text: root.toolTip
                isWanted: button.isPointed
            }
        }
    }
    SignText {
        width: parent.width
        words: root.message || root.hint
        size: 11
        box: 16
        color: root.message ? Zen.alarmInk : Zen.noteInk
        Accessible.ignored: true
    }
}
