pragma Singleton
import QtQuick
import Palomet.Kit

// The palette, the scale and the faces: every colour, size and duration of the kit and of the screens comes from here.
QtObject {
    readonly property color gray0: "#FFFFFF"
    readonly property color gray1: "#F9FAFB"
    readonly property color gray2: "#F3F4F6"
    readonly property color gray3: "#E5E7EB"
    readonly property color gray4: "#9CA3AF"
    readonly property color gray5: "#6B7280"
    readonly property color gray6: "#4B5563"
    readonly property color gray7: "#374151"
    readonly property color gray8: "#1F2937"
    readonly property color gray9: "#11181C"
    readonly property color red2: "#FFC9C9"
    readonly property color red6: "#FA5252"
    readonly property color red7: "#F03E3E"

    // Colours by their use. Text has a contrast of 4.5 to 1, or 7 to 1 where the desktop asks for more; the edge or fill by
    // which a control is recognised has 3 to 1. Rules and disabled controls may have less.
    readonly property bool isContrastRaised: Wishes.isContrastRaised
    readonly property color bodyInk: isContrastRaised ? gray7 : gray6
    readonly property color noteInk: isContrastRaised ? gray6 : gray5
    readonly property color alarmInk: isContrastRaised ? "#8F1B1B" : "#C92A2A"
    readonly property color disabledInk: gray4
    readonly property color edge: isContrastRaised ? gray6 : "#848C9A"
    readonly property color edgePointed: isContrastRaised ? gray9 : gray5
    readonly property color rule: isContrastRaised ? gray5 : gray3
    readonly property color darkNoteInk: isContrastRaised ? gray3 : gray4
    readonly property color darkEdge: isContrastRaised ? gray4 : gray7

    // Spacing: the only distances there are.
    readonly property int space1: 4
    readonly property int space2: 8
    readonly property int space3: 12
    readonly property int space4: 16
    readonly property int space5: 24
    readonly property int space6: 32
    readonly property int space7: 48

    // Corners: caps and choices; buttons, fields and lists; capsules.
    readonly property int radius1: 4
    readonly property int radius2: 8
    readonly property int radiusFull: 999

    // Heights of controls, and widths that more than one pane shares.
    readonly property int control: 36
    readonly property int controlSmall: 30
    readonly property int switchWidth: 40
    readonly property int switchHeight: 24
    readonly property int cap: 24
    readonly property int choice: 32
    readonly property int sidebar: 300
    readonly property int header: 144
    readonly property int board: 960
    readonly property int column: 640
    readonly property int controlColumn: 320
    readonly property int roleColumn: 110
    readonly property int timeColumn: 48
    readonly property int durationColumn: 64
    // A setting's box by its content: a number, a name, a long name, a line of text, a path.
    readonly property list<int> boxWidths: [160, 200, 240, controlColumn, controlColumn]

    // The baselines that the sidebar and the page's header share: the wordmark's and the crumb's, the first group's and the
    // title's. The subtitle's is the page's alone.
    readonly property int crumbLine: 35
    readonly property int titleLine: 82
    readonly property int subtitleLine: 113

    // The strip: its margins, its stop key, and the space between that key's edge and its word.
    readonly property int stripMargin: 14
    readonly property int stopKey: 20
    readonly property int stopInset: 6
    readonly property int stopKeyMost: 140
    readonly property int stopSign: 8

    readonly property int iconSidebar: 18
    readonly property int icon: 16
    readonly property int iconSmall: 14
    // As wide as the widest glyph of a state, so that the word beside it stays where it is.
    readonly property int glyphSlot: 23
    readonly property int glyphSlotCompact: 20

    // Milliseconds. Everything that moves asks isMotionReduced first.
    readonly property int hoverTime: 90
    readonly property int moveTime: 140
    readonly property int riseTime: 60
    readonly property int fallTime: 180
    readonly property int stepTime: 400
    readonly property int tipTime: 600
    // Letters typed within this time form one text.
    readonly property int typingTime: 1000
    readonly property bool isMotionReduced: Wishes.isMotionReduced

    // The five faces. Sizes are fixed; they do not follow the system's text size.
    readonly property string family: "Montserrat"
    readonly property int regular: Font.Normal
    readonly property int medium: Font.Medium
    readonly property int bold: Font.Bold
    readonly property int extraBold: Font.ExtraBold
    readonly property int black: Font.Black

    // The static shape of every level meter, tallest in the middle.
    readonly property list<real> levelShape: [0.55, 0.85, 1.0, 0.75, 0.5]

    // The beginning of a text, more than any line can show: laying out all of a long one takes seconds.
    // The text is declared var: qmllint 6.4 sometimes crashes where a string's own function is called.
    function head(text: var): string {
        return text.length > 500 ? text.slice(0, 500) + "…" : text;
    }

    // Montserrat's ascent, rounded to the sixty-fourths of a pixel that the font engine counts in.
    function ascent(size: int): real {
        return Math.round(size * 0.968 * 64) / 64;
    }

    // The baseline of a line of text, from the top of its line box. The leading is split above and below; the baseline is a
    // whole pixel.
    function baseline(size: int, box: int): int {
        const above = Math.round(size * 0.968);
        const below = Math.round(size * 0.251);
        return Math.floor((box - above - below) / 2 + above);
    }
}
