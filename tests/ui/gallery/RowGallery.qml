import QtQuick
import Palomet.Kit

// Cells and rows.
Column {
    width: parent ? parent.width : 0

    Section {
        title: "Cells"

        CellRow {
            width: 724

            Cell {
                label: "State"
                note: "Speak to interrupt"

                StateGlyph {
                    anchors.verticalCenter: parent.verticalCenter
                    loopState: "thinking"
                }
                ZenDisplay {
                    text: "Thinking"
                }
            }
            Cell {
                id: microphone

                label: "Microphone"
                note: "The input in use"

                ElidedDisplay {
                    width: parent.width
                    text: "Built-in Audio Analog Stereo"
                }
            }
            Cell {
                label: "Session"
                note: "Open for 42 min"

                ZenDisplay {
                    text: "14:07"
                }
            }
            Cell {
                label: "This conversation"
                note: "in 1 answer"

                ZenDisplay {
                    text: "US$ 0.03"
                }
            }
        }
    }
    Section {
        title: "Setting rows"

        SettingRows {
            width: Zen.column

            SettingRow {
                title: "Follow-up"
                hint: "After an answer, no name is needed for this long."

                ZenSelect {
                    width: 160
                    value: "30 s"
                }
            }
            SettingRow {
                title: "Echo cancellation"
                hint: "It does not hear its own voice, so you can speak over it, as with anyone in the room."

                ZenSwitch {
                    anchors.verticalCenter: parent.verticalCenter
                    isOn: true
                }
            }
            SettingRow {
                title: "Microphone"
                hint: "The bars move while it hears you."

                ZenSelect {
                    width: 240
                    isBusy: true
                    busyText: "Applying…"
                }
                MicMeter {
                    anchors.verticalCenter: parent.verticalCenter
                    input: 0.35
                }
            }
            SettingRow {
                title: "When the model is down"
                hint: "What it does meanwhile."

                SettingValue {
                    text: "Says so and tries again"
                }
            }
            SettingRow {
                title: "Delete files"

                ZenSwitch {
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
            SettingRow {
                title: "~/code/website"

                ZenButton {
                    anchors.verticalCenter: parent.verticalCenter
                    title: "Remove"
                    size: Zen.controlSmall
                }
            }
        }
    }
    Section {
        title: "Data rows"

        Rows {
            width: Zen.column

            DataRow {
                label: "Today 14:44"
                value: "How is the site’s deploy going?"
                trailing: "1 answer · US$ 0.03"
            }
            DataRow {
                label: "Yesterday 18:02"
                value: "Summarise the three open issues about the contact form."
                trailing: "6 answers · US$ 0.21"
            }
        }
    }
}
