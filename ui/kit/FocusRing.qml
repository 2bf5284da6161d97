import QtQuick
import Palomet.Kit

// The ring that shows where the keyboard is: outside its control, or inside where items touch.
ZenBox {
    property int corner: Zen.radius2
    property bool isInside: false

    anchors.fill: parent
    anchors.margins: isInside ? 0 : -4
    radius: isInside ? corner : corner + 4
    edge: Zen.gray9
    edgeWidth: 2
}
