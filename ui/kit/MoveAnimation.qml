import QtQuick

// How a small part of a control moves to its other place.
NumberAnimation {
    duration: Zen.moveTime
    easing.type: Easing.OutCubic
}
