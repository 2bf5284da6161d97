import QtQuick

// Free space in a column, as high as it says.
Item {
    width: 1
}
