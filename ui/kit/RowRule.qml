import QtQuick

// The rule between two rows.
HairLine {
}
