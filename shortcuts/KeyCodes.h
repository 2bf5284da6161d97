#pragma once

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <optional>

namespace palomet {

/// Virtual key codes name a position on the keyboard, whatever is printed on it; so do the kernel's input codes. This
/// is the one table between the two. An X keycode is the kernel's code plus eight.
namespace KeyCodes {

struct Pair {
    quint32 keyCode; ///< Virtual key code, as shortcuts are stored.
    quint16 evdev;   ///< The kernel's input event code.
};

/// Every key of a full keyboard: letters, digits, punctuation, the ISO and JIS keys, keypad, F1 to F20, navigation.
inline constexpr std::array all{
    // Letters.
    Pair{0, 30},
    Pair{11, 48},
    Pair{8, 46},
    Pair{2, 32},
    Pair{14, 18},
    Pair{3, 33},
    Pair{5, 34},
    Pair{4, 35},
    Pair{34, 23},
    Pair{38, 36},
    Pair{40, 37},
    Pair{37, 38},
    Pair{46, 50},
    Pair{45, 49},
    Pair{31, 24},
    Pair{35, 25},
    Pair{12, 16},
    Pair{15, 19},
    Pair{1, 31},
    Pair{17, 20},
    Pair{32, 22},
    Pair{9, 47},
    Pair{13, 17},
    Pair{7, 45},
    Pair{16, 21},
    Pair{6, 44},
    // Digits, 1 to 0.
    Pair{18, 2},
    Pair{19, 3},
    Pair{20, 4},
    Pair{21, 5},
    Pair{23, 6},
    Pair{22, 7},
    Pair{26, 8},
    Pair{28, 9},
    Pair{25, 10},
    Pair{29, 11},
    // Punctuation: - = [ ] ; ' ` \ , . /
    Pair{27, 12},
    Pair{24, 13},
    Pair{33, 26},
    Pair{30, 27},
    Pair{41, 39},
    Pair{39, 40},
    Pair{50, 41},
    Pair{42, 43},
    Pair{43, 51},
    Pair{47, 52},
    Pair{44, 53},
    // The key beside the left Shift of ISO boards; yen, ro, keypad comma, eisu and kana of Japanese ones. Brazilian
    // boards have the ro key and the keypad comma too.
    Pair{10, 86},
    Pair{93, 124},
    Pair{94, 89},
    Pair{95, 121},
    Pair{102, 94},
    Pair{104, 93},
    // Return, Tab, Space, Delete, Escape, Insert (Help), Menu.
    Pair{36, 28},
    Pair{48, 15},
    Pair{49, 57},
    Pair{51, 14},
    Pair{53, 1},
    Pair{114, 110},
    Pair{110, 127},
    // Keypad: decimal, multiply, plus, clear (Num Lock), divide, Enter, minus, equals, 0 to 9.
    Pair{65, 83},
    Pair{67, 55},
    Pair{69, 78},
    Pair{71, 69},
    Pair{75, 98},
    Pair{76, 96},
    Pair{78, 74},
    Pair{81, 117},
    Pair{82, 82},
    Pair{83, 79},
    Pair{84, 80},
    Pair{85, 81},
    Pair{86, 75},
    Pair{87, 76},
    Pair{88, 77},
    Pair{89, 71},
    Pair{91, 72},
    Pair{92, 73},
    // F1 to F20.
    Pair{122, 59},
    Pair{120, 60},
    Pair{99, 61},
    Pair{118, 62},
    Pair{96, 63},
    Pair{97, 64},
    Pair{98, 65},
    Pair{100, 66},
    Pair{101, 67},
    Pair{109, 68},
    Pair{103, 87},
    Pair{111, 88},
    Pair{105, 183},
    Pair{107, 184},
    Pair{113, 185},
    Pair{106, 186},
    Pair{64, 187},
    Pair{79, 188},
    Pair{80, 189},
    Pair{90, 190},
    // Home, End, Page Up, Page Down, forward delete, arrows left, right, down, up.
    Pair{115, 102},
    Pair{119, 107},
    Pair{116, 104},
    Pair{121, 109},
    Pair{117, 111},
    Pair{123, 105},
    Pair{124, 106},
    Pair{125, 108},
    Pair{126, 103},
    // Volume up, down, mute.
    Pair{72, 115},
    Pair{73, 114},
    Pair{74, 113},
};

[[nodiscard]] constexpr std::optional<quint16> toEvdev(quint32 keyCode) {
    const auto *found = std::find_if(all.begin(), all.end(), [=](auto pair) { return pair.keyCode == keyCode; });
    return found == all.end() ? std::nullopt : std::optional(found->evdev);
}

[[nodiscard]] constexpr std::optional<quint32> fromEvdev(quint16 evdev) {
    const auto *found = std::find_if(all.begin(), all.end(), [=](auto pair) { return pair.evdev == evdev; });
    return found == all.end() ? std::nullopt : std::optional(found->keyCode);
}

} // namespace KeyCodes

} // namespace palomet
