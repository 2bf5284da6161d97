import QtQuick
import Palomet.Kit
import Palomet.Ui

// The state of the loop and the timings of the last answer, in cells.
Column {
    id: root

    required property NowScreen screen
    // Whether the state's glyph shows.
    property bool isStateShown: true

    width: parent ? parent.width : 0

    Announcement {
        text: `${root.screen.shown.stateWord}. ${root.screen.shown.stateNote}`
        Accessible.role: Accessible.Notification
        Accessible.name: text
    }
    CellRow {
        width: root.width

        Cell {
            label: Words.t("now.state")
            note: root.screen.shown.stateNote
            spoken: root.screen.shown.stateWord

            Item {
                width: Zen.glyphSlot
                height: parent.height

                StateGlyph {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: root.isStateShown
                    loopState: root.screen.shown.loopState
                    level: root.screen.level
                }
            }
            ZenDisplay {
                text: root.screen.shown.stateWord
            }
        }
        ValueCell {
            label: Words.t("now.microphone")
            note: root.screen.shown.microphoneNote
            text: root.screen.shown.microphone
        }
        ValueCell {
            label: Words.t("now.session")
            note: root.screen.shown.sessionNote
            text: root.screen.shown.session
        }
        ValueCell {
            label: Words.t("now.thisConversation")
            note: root.screen.shown.costNote
            text: root.screen.shown.cost
        }
    }
    CellRow {
        width: root.width
        ruleColor: Zen.rule

        ValueCell {
            label: Words.t("now.transcription")
            note: root.screen.shown.transcriptionNote
            text: root.screen.shown.transcription
        }
        ValueCell {
            label: Words.t("now.model")
            note: Words.t("now.model.note")
            text: root.screen.shown.brain
        }
        ValueCell {
            label: Words.t("now.voice")
            note: Words.t("now.voice.note")
            text: root.screen.shown.voice
        }
        ValueCell {
            label: Words.t("now.untilHeard")
            note: root.screen.shown.untilHeardNote
            text: root.screen.shown.untilHeard
        }
    }
}
