import QtQuick
import Palomet.Kit
import Palomet.Ui

// The state of the loop and the timings of the last answer, in cells.
Column {
    id: root

    required property NowScreen screen
    // Whether the state's glyph is there to be seen.
    property bool isStateShown: true

    width: parent ? parent.width : 0

    Announcement {
        text: `${root.screen.stateWord}. ${root.screen.stateNote}`
        Accessible.role: Accessible.Notification
        Accessible.name: text
    }
    CellRow {
        width: root.width

        Cell {
            label: Words.t("now.state")
            note: root.screen.stateNote
            spoken: root.screen.stateWord

            // As wide as the widest glyph: the word stays where it is.
            Item {
                width: 23
                height: parent.height

                StateGlyph {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: root.isStateShown
                    loopState: root.screen.loopState
                    level: root.screen.level
                }
            }
            ZenDisplay {
                text: root.screen.stateWord
            }
        }
        ValueCell {
            label: Words.t("now.microphone")
            note: root.screen.microphoneNote
            text: root.screen.microphone
        }
        ValueCell {
            label: Words.t("now.session")
            note: root.screen.sessionNote
            text: root.screen.session
        }
        ValueCell {
            label: Words.t("now.thisConversation")
            note: root.screen.costNote
            text: root.screen.cost
        }
    }
    CellRow {
        width: root.width
        ruleColor: Zen.rule

        ValueCell {
            label: Words.t("now.transcription")
            note: root.screen.transcriptionNote
            text: root.screen.transcription
        }
        ValueCell {
            label: Words.t("now.model")
            note: Words.t("now.model.note")
            text: root.screen.brain
        }
        ValueCell {
            label: Words.t("now.voice")
            note: Words.t("now.voice.note")
            text: root.screen.voice
        }
        ValueCell {
            label: Words.t("now.untilHeard")
            note: root.screen.untilHeardNote
            text: root.screen.untilHeard
        }
    }
}
