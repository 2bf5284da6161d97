pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit

// Selects, text fields and switches in every state.
Column {
    width: parent ? parent.width : 0

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
                    Repeater {
                        model: ["off", "off, hover", "focused", "on", "on, hover", "focused"]

                        Figure {
                            id: figure

                            required property int index
                            required property string modelData

                            caption: modelData

                            ZenSwitch {
                                isOn: figure.index > 2
                                isPointed: /hover/.test(figure.modelData)
                                isReached: figure.modelData === "focused"
                            }
                        }
                    }
                }
            }
        }
    }
}
