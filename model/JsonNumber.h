#pragma once

#include <optional>
#include <string_view>

namespace palomet {

// Numbers as JSON writes them: pure functions over the number's own bytes, for any thread.

/// Whether the text is a number to JSON, with nothing before or behind it.
[[nodiscard]] bool isJsonNumber(std::string_view text);

/// The double nearest to a number, however many digits it has; 0 for one that is too small to be told from it. None for
/// one that no double can hold, and for what is no number.
[[nodiscard]] std::optional<double> jsonNumber(std::string_view text);

} // namespace palomet
