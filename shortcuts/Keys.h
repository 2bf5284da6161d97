#pragma once

#include "shortcuts/Key.h"

#include <algorithm>
#include <array>
#include <optional>

namespace palomet {

/// Every key of a full keyboard: letters, digits, signs, the ISO and JIS keys, keypad, F1 to F20 in order, navigation,
/// volume.
inline constexpr auto allKeys = std::to_array<Key>({
    {Key::A, 30},
    {Key::B, 48},
    {Key::C, 46},
    {Key::D, 32},
    {Key::E, 18},
    {Key::F, 33},
    {Key::G, 34},
    {Key::H, 35},
    {Key::I, 23},
    {Key::J, 36},
    {Key::K, 37},
    {Key::L, 38},
    {Key::M, 50},
    {Key::N, 49},
    {Key::O, 24},
    {Key::P, 25},
    {Key::Q, 16},
    {Key::R, 19},
    {Key::S, 31},
    {Key::T, 20},
    {Key::U, 22},
    {Key::V, 47},
    {Key::W, 17},
    {Key::X, 45},
    {Key::Y, 21},
    {Key::Z, 44},
    {Key::Digit1, 2},
    {Key::Digit2, 3},
    {Key::Digit3, 4},
    {Key::Digit4, 5},
    {Key::Digit5, 6},
    {Key::Digit6, 7},
    {Key::Digit7, 8},
    {Key::Digit8, 9},
    {Key::Digit9, 10},
    {Key::Digit0, 11},
    {Key::Minus, 12},
    {Key::Equal, 13},
    {Key::LeftBracket, 26},
    {Key::RightBracket, 27},
    {Key::Semicolon, 39},
    {Key::Quote, 40},
    {Key::Grave, 41},
    {Key::Backslash, 43},
    {Key::Comma, 51},
    {Key::Period, 52},
    {Key::Slash, 53},
    {Key::Iso, 86},
    {Key::Yen, 124},
    {Key::Ro, 89},
    {Key::KeypadComma, 121},
    {Key::Eisu, 94},
    {Key::Kana, 93},
    {Key::Return, 28, "Return", u'\u21A9', u'\u000D', "Return", nullptr, "corner-down-left"},
    {Key::Tab, 15, "Tab", u'\u21E5', u'\u0009', "Tab"},
    {.code = Key::Space, .evdev = 57, .xName = "space", .menuKey = u'\u0020', .text = "key.space"},
    {Key::Backspace, 14, "BackSpace", u'\u232B', u'\u0008', "Backspace", nullptr, "backspace"},
    {Key::Escape, 1, "Escape", u'\u238B', u'\u001B', "Esc"},
    {.code = Key::Insert, .evdev = 110, .xName = "Insert", .word = "Insert"},
    {.code = Key::Menu, .evdev = 127, .xName = "Menu", .word = "Menu"},
    {Key::KeypadDecimal, 83},
    {Key::KeypadMultiply, 55},
    {Key::KeypadPlus, 78},
    {Key::KeypadClear, 69},
    {Key::KeypadDivide, 98},
    {Key::KeypadEnter, 96, "KP_Enter", u'\u2324', u'\u0003', "Enter", nullptr, "corner-down-left"},
    {Key::KeypadMinus, 74},
    {Key::KeypadEquals, 117},
    {Key::Keypad0, 82},
    {Key::Keypad1, 79},
    {Key::Keypad2, 80},
    {Key::Keypad3, 81},
    {Key::Keypad4, 75},
    {Key::Keypad5, 76},
    {Key::Keypad6, 77},
    {Key::Keypad7, 71},
    {Key::Keypad8, 72},
    {Key::Keypad9, 73},
    {Key::F1, 59, "F1"},
    {Key::F2, 60, "F2"},
    {Key::F3, 61, "F3"},
    {Key::F4, 62, "F4"},
    {Key::F5, 63, "F5"},
    {Key::F6, 64, "F6"},
    {Key::F7, 65, "F7"},
    {Key::F8, 66, "F8"},
    {Key::F9, 67, "F9"},
    {Key::F10, 68, "F10"},
    {Key::F11, 87, "F11"},
    {Key::F12, 88, "F12"},
    {Key::F13, 183, "F13"},
    {Key::F14, 184, "F14"},
    {Key::F15, 185, "F15"},
    {Key::F16, 186, "F16"},
    {Key::F17, 187, "F17"},
    {Key::F18, 188, "F18"},
    {Key::F19, 189, "F19"},
    {Key::F20, 190, "F20"},
    {Key::Home, 102, "Home", u'\u2196', u'\uF729', "Home"},
    {Key::End, 107, "End", u'\u2198', u'\uF72B', "End"},
    {Key::PageUp, 104, "Prior", u'\u21DE', u'\uF72C', "Page Up"},
    {Key::PageDown, 109, "Next", u'\u21DF', u'\uF72D', "Page Down"},
    {Key::Delete, 111, "Delete", u'\u2326', u'\uF728', "Delete"},
    {Key::Left, 105, "Left", u'\u2190', u'\uF702', nullptr, "key.left", "arrow-left"},
    {Key::Right, 106, "Right", u'\u2192', u'\uF703', nullptr, "key.right", "arrow-right"},
    {Key::Down, 108, "Down", u'\u2193', u'\uF701', nullptr, "key.down", "arrow-down"},
    {Key::Up, 103, "Up", u'\u2191', u'\uF700', nullptr, "key.up", "arrow-up"},
    {.code = Key::VolumeUp, .evdev = 115, .text = "key.volumeUp"},
    {.code = Key::VolumeDown, .evdev = 114, .text = "key.volumeDown"},
    {.code = Key::Mute, .evdev = 113, .text = "key.mute"},
});

/// None for a code that no key has.
[[nodiscard]] constexpr const Key *findKey(quint32 code) {
    const auto *found = std::ranges::find(allKeys, code, [](const Key &key) -> quint32 { return key.code; });
    return found == allKeys.end() ? nullptr : found;
}

/// X numbers the keys as the kernel does, plus eight.
[[nodiscard]] constexpr quint32 toXKeycode(const Key &key) {
    return key.evdev + 8U;
}

[[nodiscard]] constexpr const Key *findXKeycode(quint32 keycode) {
    const auto *found = std::ranges::find(allKeys, keycode, &toXKeycode);
    return found == allKeys.end() ? nullptr : found;
}

static_assert(std::ranges::all_of(allKeys, [](const Key &key) { return toXKeycode(key) <= 255; }),
              "X keycodes are bytes");

} // namespace palomet
