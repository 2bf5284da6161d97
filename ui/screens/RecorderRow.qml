import QtQuick
import Palomet.Kit
import Palomet.Ui

// A shortcut that can be recorded.
SettingRow {
    id: root

    required property KeyRecorder recorder

    title: recorder.title
    hint: recorder.description
    Component.onDestruction: recorder.disappear()

    RecorderButton {
        id: control

        caps: root.recorder.caps
        spoken: root.recorder.spoken
        isRecording: root.recorder.isRecording
        name: root.recorder.title
        description: root.recorder.description
        hint: root.recorder.hint
        message: root.recorder.message
        toolTip: root.recorder.isRecording || !root.recorder.spoken ? root.recorder.help : `${root.recorder.spoken}\n${root.recorder.help}`
        noneText: Words.t("recorder.none")
        typeText: Words.t("recorder.type")
        onClicked: {
            // A recording button has the focus, also when a screen reader pressed it.
            button.forceActiveFocus(Qt.OtherFocusReason);
            root.recorder.toggle();
        }
    }
    Connections {
        target: control.button

        function onActiveFocusChanged(): void {
            if (!control.button.activeFocus)
                root.recorder.stop();
        }
    }
}
