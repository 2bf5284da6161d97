pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// Key caps and recorders in every state.
Column {
    width: parent ? parent.width : 0

    Pair {
        first: Section {
            title: "Key caps"

            Repeater {
                model: [[["Alt + Space", "icon:option", "Space"], ["Ctrl + Alt + Shift + Super + K", "icon:chevron-up", "icon:option", "icon:arrow-big-up", "icon:command", "K"], ["Escape", "⎋"]], [["Return", "icon:corner-down-left"], ["Backspace", "icon:backspace"], ["Left", "icon:arrow-left"], ["Tab", "⇥"], ["Home", "↖"], ["Page Up", "⇞"], ["F12", "F12"], ["unknown", "#10"]]]

                Series {
                    id: line

                    required property var modelData

                    Repeater {
                        model: line.modelData

                        Figure {
                            id: figure

                            required property var modelData

                            caption: modelData[0]

                            Caps {
                                caps: figure.modelData.slice(1)
                            }
                        }
                    }
                }
            }
        }
        second: Section {
            title: "Key recorder"

            Grid {
                columns: 2
                columnSpacing: Zen.space5
                rowSpacing: Zen.space5

                Repeater {
                    model: ["idle", "hover", "none", "none, hover", "recording", "recording, refused", "after a duplicate", "focused, a key alone"]

                    Column {
                        id: recorder

                        required property string modelData
                        readonly property bool hasKeys: !/none|recording/.test(modelData)

                        width: (488 - Zen.space5) / 2

                        Caption {
                            text: recorder.modelData
                        }
                        RecorderButton {
                            width: recorder.width
                            caps: !recorder.hasKeys ? [] : /alone/.test(recorder.modelData) ? ["⎋"] : ["icon:option", "Space"]
                            isRecording: /recording/.test(recorder.modelData)
                            noneText: "None"
                            typeText: "Press the keys"
                            hint: /alone/.test(recorder.modelData) ? "Click, then press. A key alone will do." : "Click, then press the keys."
                            message: /refused/.test(recorder.modelData) ? "Add Ctrl, Alt or Super." : /duplicate/.test(recorder.modelData) ? "⎋ already does “Stop”." : ""
                            button.isPointed: /hover/.test(recorder.modelData)
                            button.isReached: /focused/.test(recorder.modelData)
                        }
                    }
                }
            }
        }
    }
}
