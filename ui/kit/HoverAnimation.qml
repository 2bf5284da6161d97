import QtQuick

// How a colour changes under the pointer.
ColorAnimation {
    duration: Zen.hoverTime
    easing.type: Easing.OutCubic
}
