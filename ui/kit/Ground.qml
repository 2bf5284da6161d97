import QtQuick

// Where there is nothing: a press there takes the focus from what is being edited.
MouseArea {
    onPressed: forceActiveFocus(Qt.MouseFocusReason)
}
