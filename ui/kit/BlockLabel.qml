import QtQuick

// A block's heading.
ZenLabel {
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
