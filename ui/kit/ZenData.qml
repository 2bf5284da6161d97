import QtQuick

// Values and numbers.
ZenText {}
