pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// The kit: every control in every state.
Column {
    id: root

    readonly property var states8: ["waiting", "listening", "hearing", "drafting", "thinking", "speaking", "muted", "offline"]

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
    Pair {
        first: Section {
            title: "Primary button"

            Series {
                Figure {
                    caption: "normal"

                    ZenButton {
                        title: "Listen"
                        icon: "microphone"
                        kind: ZenButtonStyle.Primary
                    }
                }
                Figure {
                    caption: "hover"

                    ZenButton {
                        title: "Listen"
                        icon: "microphone"
                        kind: ZenButtonStyle.Primary
                        isPointed: true
                    }
                }
                Figure {
                    caption: "pressed"

                    ZenButton {
                        title: "Listen"
                        icon: "microphone"
                        kind: ZenButtonStyle.Primary
                        isHeld: true
                    }
                }
            }
            Series {
                Figure {
                    caption: "disabled"

                    ZenButton {
                        title: "Listen"
                        icon: "microphone"
                        kind: ZenButtonStyle.Primary
                        enabled: false
                    }
                }
                Figure {
                    caption: "focused"

                    ZenButton {
                        title: "Listen"
                        icon: "microphone"
                        kind: ZenButtonStyle.Primary
                        isReached: true
                    }
                }
                Figure {
                    caption: "no icon"

                    ZenButton {
                        title: "Send"
                        kind: ZenButtonStyle.Primary
                    }
                }
            }
        }
        second: Section {
            title: "Secondary button"

            Series {
                Figure {
                    caption: "normal"

                    ZenButton {
                        title: "Stop"
                        icon: "player-stop"
                    }
                }
                Figure {
                    caption: "hover"

                    ZenButton {
                        title: "Stop"
                        icon: "player-stop"
                        isPointed: true
                    }
                }
                Figure {
                    caption: "pressed"

                    ZenButton {
                        title: "Stop"
                        icon: "player-stop"
                        isHeld: true
                    }
                }
                Figure {
                    anchors.bottom: parent.bottom
                    caption: "height 30"

                    ZenButton {
                        title: "Clear"
                        size: Zen.controlSmall
                    }
                }
            }
            Series {
                Figure {
                    caption: "disabled"

                    ZenButton {
                        title: "Stop"
                        icon: "player-stop"
                        enabled: false
                    }
                }
                Figure {
                    caption: "focused"

                    ZenButton {
                        title: "Stop"
                        icon: "player-stop"
                        isReached: true
                    }
                }
                Figure {
                    anchors.bottom: parent.bottom
                    caption: "height 30, icon"

                    ZenButton {
                        title: "Run now"
                        icon: "player-play"
                        size: Zen.controlSmall
                    }
                }
            }
        }
    }
    Pair {
        first: Section {
            title: "Select"

            Series {
                Figure {
                    caption: "closed"

                    ZenSelect {
                        value: "large-v3-turbo"
                    }
                }
                Figure {
                    caption: "hover"

                    ZenSelect {
                        value: "large-v3-turbo"
                        isPointed: true
                    }
                }
            }
            Series {
                Figure {
                    caption: "busy"

                    ZenSelect {
                        value: "large-v3-turbo"
                        isBusy: true
                        busyText: "Applying…"
                    }
                }
                Figure {
                    caption: "focused"

                    ZenSelect {
                        value: "large-v3-turbo"
                        isReached: true
                    }
                }
            }
            Series {
                Figure {
                    caption: "open, the third choice hovered"

                    Column {
                        spacing: Zen.space1

                        ZenSelectBox {
                            value: "small"
                            isOpen: true
                        }
                        SelectList {
                            width: 200
                            height: implicitHeight
                            choices: ["base", "small", "medium", "large-v3-turbo"].map(name => ({
                                        id: name,
                                        title: name
                                    }))
                            selected: "small"
                            current: 2
                        }
                    }
                }
                Figure {
                    caption: "no setting known"

                    ZenSelect {
                        width: 160
                        value: "—"
                    }
                }
            }
        }
        second: Column {
            width: parent.width

            Section {
                title: "Text field"

                Series {
                    Figure {
                        caption: "empty"

                        ZenTextField {
                            width: 200
                            placeholder: "Paste a voice id"
                        }
                    }
                    Figure {
                        caption: "filled"

                        ZenTextField {
                            width: 200
                            value: "palomet, hey palomet"
                        }
                    }
                }
                Series {
                    Figure {
                        caption: "hover"

                        ZenTextField {
                            width: 200
                            value: "palomet, hey palomet"
                            isPointed: true
                        }
                    }
                    Figure {
                        caption: "focused"

                        ZenTextField {
                            width: 200
                            value: "palomet, hey"
                            isFocused: true
                        }
                    }
                }
            }
            Section {
                title: "Switch"

                Series {
                    Figure {
                        caption: "off"

                        ZenSwitch {}
                    }
                    Figure {
                        caption: "off, hover"

                        ZenSwitch {
                            isPointed: true
                        }
                    }
                    Figure {
                        caption: "focused"

                        ZenSwitch {
                            isReached: true
                        }
                    }
                    Figure {
                        caption: "on"

                        ZenSwitch {
                            isOn: true
                        }
                    }
                    Figure {
                        caption: "on, hover"

                        ZenSwitch {
                            isOn: true
                            isPointed: true
                        }
                    }
                    Figure {
                        caption: "focused"

                        ZenSwitch {
                            isOn: true
                            isReached: true
                        }
                    }
                }
            }
        }
    }
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
                        model: root.states8

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
                        Item {
                            width: 96
                            height: 28

                            Bars {
                                anchors.verticalCenter: parent.verticalCenter
                                input: meters.modelData
                            }
                        }
                        Item {
                            width: 96
                            height: 28

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
