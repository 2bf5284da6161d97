import QtQuick
import Palomet.Kit

Rectangle {
    width: 1120
    height: sheet.y + sheet.height

    ZenDisplay {
        x: Zen.space7
        y: Zen.space7
        text: "Kit"
        size: 40
        box: 48
        isHung: true
    }
    KitGallery {
        id: sheet

        x: Zen.space7
        y: Zen.space7 + 48 + Zen.space6
    }
}
