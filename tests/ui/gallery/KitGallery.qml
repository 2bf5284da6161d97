pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// The kit: every control in every state.
Column {
    id: root

    width: 1024

    Section {
        title: "Palette"

        Row {
            spacing: Zen.space2

            Repeater {
                model: ["gray0", "gray1", "gray2", "gray3", "gray4", "gray5", "gray6", "gray7", "gray8", "gray9", "red2", "red6", "red7"]

                Figure {
                    id: swatch

                    required property string modelData

                    caption: modelData

                    ZenBox {
                        width: (root.width - 12 * Zen.space2) / 13
                        height: 48
                        radius: Zen.radius1
                        color: Zen[swatch.modelData]
                        edge: Zen.rule
                        edgeWidth: 1
                    }
                }
            }
        }
    }
    Pair {
        first: Section {
            title: "Type"

            Column {
                width: parent.width

                ZenDisplay {
                    text: "Listening"
                    size: 40
                    box: 48
                }
                Item {
                    width: 1
                    height: 4
                }
                ZenDisplay {
                    text: "MacBook Pro"
                }
                Item {
                    width: 1
                    height: 4
                }
                ZenBody {
                    text: "Body 15/24. Say “palomet”, then ask."
                }
                ZenText {
                    text: "Row title 13/20, Bold"
                    font.weight: Zen.bold
                }
                ZenData {
                    text: "Data 13/20. 14:44, 3.6 s, US$ 0.03, 1.25×"
                }
                ZenNote {
                    width: parent.width
                    text: "Note 13/21. It does not hear its own voice, so you can speak over it."
                }
                ZenData {
                    size: 12
                    text: "Small data 12/20. 1 answer · US$ 0.03"
                }
                ZenText {
                    size: 11
                    box: 16
                    color: Zen.noteInk
                    text: "Recorder line 11/16"
                }
                Item {
                    width: 1
                    height: 4
                }
                ZenLabel {
                    text: "Label 10/16"
                }
            }
        }
    }
    ButtonGallery {}
    FieldGallery {}
    KeyGallery {}
    MeterGallery {}
    RowGallery {}
}
