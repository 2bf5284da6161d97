pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// What shows the state of the loop, and levels.
Column {
    id: root

    width: parent ? parent.width : 0

    Section {
        title: "State glyphs, levels at 0.3"

        Column {
            id: glyphs

            readonly property int column: (root.width - 136) / 8

            Row {
                x: 136

                Repeater {
                    model: ["Waiting", "Listening", "Hearing", "Drafting", "Thinking", "Speaking", "Muted", "Offline"]

                    Item {
                        id: word

                        required property string modelData

                        width: glyphs.column
                        height: 40

                        Caption {
                            x: Zen.space3
                            y: 12
                            text: word.modelData
                        }
                    }
                }
            }
            Repeater {
                model: ["normal", "compact", "normal, inverted", "compact, inverted"]

                Row {
                    id: glyphRow

                    required property string modelData
                    readonly property bool isInverted: /inverted/.test(modelData)

                    Item {
                        width: 136
                        height: 40

                        Caption {
                            y: 12
                            text: glyphRow.modelData
                        }
                    }
                    Repeater {
                        model: ["waiting", "listening", "hearing", "drafting", "thinking", "speaking", "muted", "offline"]

                        Rectangle {
                            id: glyphCell

                            required property string modelData

                            width: glyphs.column
                            height: 40
                            color: glyphRow.isInverted ? Zen.gray9 : "transparent"

                            StateGlyph {
                                x: Zen.space3
                                anchors.verticalCenter: parent.verticalCenter
                                loopState: glyphCell.modelData
                                level: 0.3
                                isInverted: glyphRow.isInverted
                                isCompact: /compact/.test(glyphRow.modelData)
                            }
                        }
                    }
                }
            }
        }
    }
    Pair {
        first: Section {
            title: "Bars, microphone meter"

            Column {
                Row {
                    Repeater {
                        model: [["level", 80], ["Bars, compact", 96], ["Bars, normal", 96], ["MicMeter", 96]]

                        Caption {
                            required property var modelData

                            width: modelData[1]
                            text: modelData[0]
                        }
                    }
                }
                Repeater {
                    model: [0, 0.2, 0.5]

                    Row {
                        id: meters

                        required property real modelData

                        ZenData {
                            width: 80
                            box: 28
                            text: meters.modelData
                        }
                        Slot {
                            Bars {
                                anchors.verticalCenter: parent.verticalCenter
                                input: meters.modelData
                            }
                        }
                        Slot {
                            Bars {
                                anchors.verticalCenter: parent.verticalCenter
                                input: meters.modelData
                                maxHeight: 14
                                barWidth: 3
                            }
                        }
                        MicMeter {
                            anchors.verticalCenter: parent.verticalCenter
                            input: meters.modelData
                        }
                    }
                }
            }
        }
        second: Section {
            title: "Steps"

            Column {
                Row {
                    Repeater {
                        model: ["size", "step 0", "step 1", "step 2"]

                        Caption {
                            required property string modelData

                            width: 80
                            text: modelData
                        }
                    }
                }
                Repeater {
                    model: [5, 4]

                    Row {
                        id: dots

                        required property int modelData

                        ZenData {
                            width: 80
                            box: 28
                            text: dots.modelData
                        }
                        Repeater {
                            model: 3

                            Item {
                                id: place

                                required property int index

                                width: 80
                                height: 28

                                Steps {
                                    anchors.verticalCenter: parent.verticalCenter
                                    size: dots.modelData
                                    step: place.index
                                    isMoving: false
                                }
                            }
                        }
                    }
                }
            }
        }
    }
}
