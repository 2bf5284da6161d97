import QtQuick

// Empty ground: a press on it takes the focus from the field that is being edited.
MouseArea {
    onPressed: forceActiveFocus(Qt.MouseFocusReason)
}
