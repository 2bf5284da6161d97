import Palomet.Kit

ZenText {
    size: 11
    box: 16
    color: Zen.noteInk
}
