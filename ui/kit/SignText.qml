pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import "signs.js" as Signs

// Text with the signs of keys in it, "⌃⌥K". Each sign is drawn as on a cap; lines wrap between words.
Item {
    id: root

    property string words
    property int size: 13
    property int box: 20
    property color color: Zen.gray9
    readonly property bool hasSigns: Signs.isIn(words)

    implicitWidth: hasSigns ? pieces.implicitWidth : plain.implicitWidth
    implicitHeight: hasSigns ? pieces.implicitHeight : plain.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: words

    ZenText {
        id: plain

        width: parent.width
        visible: !root.hasSigns
        text: root.hasSigns ? "" : root.words
        size: root.size
        box: root.box
        color: root.color
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    FontMetrics {
        id: metrics

        font: plain.font
    }
    Flow {
        id: pieces

        width: parent.width
        visible: root.hasSigns

        Repeater {
            model: root.hasSigns ? root.words.split(" ") : []

            Row {
                id: word

                required property string modelData

                rightPadding: Math.round(metrics.advanceWidth(" "))

                Repeater {
                    model: Signs.pieces(word.modelData)

                    Item {
                        id: piece

                        required property string modelData
                        readonly property string icon: Signs.icons[modelData] ?? ""

                        // A whole number, so that every icon lies on whole pixels.
                        width: icon ? sign.width : Math.ceil(letters.implicitWidth)
                        height: root.box

                        Icon {
                            id: sign

                            // In the middle of the capitals.
                            y: Math.round(Zen.baseline(root.size, root.box) - 0.35 * root.size - height / 2)
                            visible: piece.icon
                            name: piece.icon
                            size: root.size + 1
                            color: root.color
                        }
                        ZenText {
                            id: letters

                            text: piece.icon ? "" : piece.modelData
                            size: root.size
                            box: root.box
                            color: root.color
                            Accessible.ignored: true
                        }
                    }
                }
            }
        }
    }
}
