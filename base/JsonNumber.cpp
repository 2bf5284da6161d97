#include "base/JsonNumber.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace palomet {

namespace {

/// Takes a character off the front when it is one of these.
bool takeOneOf(std::string_view characters, std::string_view &text) {
    if (text.empty() || characters.find(text.front()) == std::string_view::npos)
        return false;
    text.remove_prefix(1);
    return true;
}

/// Takes the digits off the front; whether there was one.
bool takeDigits(std::string_view &text) {
    const auto count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count > 0;
}

/// Whether a number that is not 0, and far from 1, is the larger of the two.
bool isLarge(std::string_view number) {
    const auto mantissa = number.substr(0, number.find_first_of("eE"));
    auto exponent = number.substr(std::min(mantissa.size() + 1, number.size()));
    takeOneOf("+", exponent);
    std::ptrdiff_t tens = 0;
    const auto [end, error] = std::from_chars(exponent.data(), exponent.data() + exponent.size(), tens);
    if (error == std::errc::result_out_of_range)
        return exponent.front() != '-';
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    return static_cast<std::ptrdiff_t>(point) + tens > static_cast<std::ptrdiff_t>(mantissa.find_first_of("123456789"));
}

} // namespace

bool isJsonNumber(std::string_view text) {
    takeOneOf("-", text);
    if (!takeOneOf("0", text) && !takeDigits(text))
        return false;
    if (takeOneOf(".", text) && !takeDigits(text))
        return false;
    if (takeOneOf("eE", text)) {
        takeOneOf("+-", text);
        if (!takeDigits(text))
            return false;
    }
    return text.empty();
}

std::optional<double> jsonNumber(std::string_view text) {
    if (!isJsonNumber(text))
        return std::nullopt;
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc::result_out_of_range)
        return number;
    return isLarge(text) ? std::nullopt : std::optional(0.0);
}

} // namespace palomet
