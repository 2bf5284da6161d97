#pragma once

#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>
#include <optional>
#include <string_view>

namespace palomet {

// Numbers as JSON writes them: pure functions over the number's own bytes, for any thread.

/// Whether the text is a number to JSON, with nothing before or behind it.
[[nodiscard]] bool isJsonNumber(std::string_view text);

/// The double nearest to a number, however many digits it has; 0 for one that is too small to be told from it. None for
/// one that no double can hold, and for what is no number.
[[nodiscard]] std::optional<double> jsonNumber(std::string_view text);

/// The whole number that a number is: 5, and 5.0 and 5e0 as well. None for one with a fraction that a double can tell,
/// for one that `Whole` cannot hold, and for what is no number.
template <std::integral Whole>
[[nodiscard]] std::optional<Whole> wholeNumber(std::string_view text) {
    if (!isJsonNumber(text))
        return std::nullopt;
    if (text == "-0")
        return Whole{0};
    // Digits alone are read as they are: a double would round them, and let one that is too large pass for its
    // neighbour.
    if (text.find_first_of(".eE") == std::string_view::npos) {
        Whole whole = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), whole);
        return error == std::errc() ? std::optional(whole) : std::nullopt;
    }
    constexpr auto first = static_cast<double>(std::numeric_limits<Whole>::min());
    constexpr Whole half = std::numeric_limits<Whole>::max() / 2 + 1;
    constexpr auto end = 2 * static_cast<double>(half);
    const auto number = jsonNumber(text);
    if (!number || std::trunc(*number) != *number || *number < first || *number >= end)
        return std::nullopt;
    return static_cast<Whole>(*number);
}

} // namespace palomet
