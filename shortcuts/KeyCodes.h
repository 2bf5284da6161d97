#pragma once

#include <QtGlobal>

#include <optional>
#include <span>

namespace palomet {

/// Virtual key codes name a position on the keyboard, whatever is printed on it; so do the kernel's input codes. This
/// is the one table between the two. An X keycode is the kernel's code plus eight.
namespace KeyCodes {

struct Pair {
    quint32 keyCode; ///< Virtual key code, as shortcuts are stored.
    quint16 evdev;   ///< The kernel's input event code.
};

/// Every key of a full keyboard: letters, digits, punctuation, the ISO and JIS keys, keypad, F1 to F20, navigation.
[[nodiscard]] std::span<const Pair> all();

[[nodiscard]] std::optional<quint16> toEvdev(quint32 keyCode);
[[nodiscard]] std::optional<quint32> fromEvdev(quint16 evdev);

} // namespace KeyCodes

} // namespace palomet
