import QtQuick

// The ground of a button in each of its states, and the ink that stands on it.
SoftBox {
    id: root

    enum Kind {
        Primary,
        Secondary
    }

    property int kind: ZenButtonStyle.Secondary
    property bool isPointed: false
    property bool isHeld: false
    readonly property color ink: !enabled ? Zen.disabledInk : kind === ZenButtonStyle.Primary ? Zen.gray0 : Zen.gray9

    radius: Zen.radius2
    color: {
        if (kind === ZenButtonStyle.Primary)
            return !enabled ? Zen.gray3 : isHeld ? Zen.gray7 : isPointed ? Zen.gray8 : Zen.gray9;
        return !enabled ? Zen.gray1 : isHeld ? Zen.gray4 : isPointed ? Zen.gray3 : Zen.gray2;
    }
}
