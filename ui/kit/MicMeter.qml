// The microphone's meter.
Bars {
    maxHeight: 12
    floor: 2
}
