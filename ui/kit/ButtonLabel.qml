import QtQuick

// An icon and a title side by side, in one colour.
Row {
    id: root

    property string title
    property string icon
    property color color: Zen.gray9
    property int size: 13

    spacing: Zen.space2

    Icon {
        anchors.verticalCenter: parent.verticalCenter
        visible: name !== ""
        name: root.icon
        color: root.color
    }
    ZenText {
        anchors.verticalCenter: parent.verticalCenter
        text: root.title
        size: root.size
        color: root.color
        font.weight: Zen.bold
    }
}
