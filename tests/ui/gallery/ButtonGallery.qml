import QtQuick
import Palomet.Kit

// Buttons in every state.
Column {
    width: parent ? parent.width : 0

    Pair {
        first: Section {
            title: "Primary button"

            Series {
                ButtonFigures {
                    model: ["normal", "hover", "pressed"]
                    title: "Listen"
                    icon: "microphone"
                    kind: ZenButtonStyle.Primary
                }
            }
            Series {
                ButtonFigures {
                    model: ["disabled", "focused"]
                    title: "Listen"
                    icon: "microphone"
                    kind: ZenButtonStyle.Primary
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
                ButtonFigures {
                    model: ["normal", "hover", "pressed"]
                    title: "Stop"
                    icon: "player-stop"
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
                ButtonFigures {
                    model: ["disabled", "focused"]
                    title: "Stop"
                    icon: "player-stop"
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
}
