import QtQuick
import Palomet.Kit

// Figures side by side.
Row {
    spacing: Zen.space5
}
