import QtQuick

// The place of a meter in a table of meters.
Item {
    width: 96
    height: 28
}
