import QtQuick
import Palomet.Kit

// A box whose colours change softly, as it is pointed at, held or reached.
ZenBox {
    id: root

    Behavior on color {
        enabled: root.Exposure.isShown && !Zen.isMotionReduced

        HoverAnimation {}
    }
    Behavior on edge {
        enabled: root.Exposure.isShown && !Zen.isMotionReduced

        HoverAnimation {}
    }
}
