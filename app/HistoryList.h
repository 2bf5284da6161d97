#pragma once

#include "model/ConversationSummary.h"

#include <vector>

namespace palomet {

/// The past conversations as a command prints them, in the order given. Main thread only.
namespace historyList {

/// A line each: the day, what it came to, what was asked first, as the window's history shows them; or the window's
/// sentence for no conversation at all. Nothing in it moves a terminal's cursor.
[[nodiscard]] QString text(const std::vector<ConversationSummary> &history);

/// One line: an array of objects with the members of `ConversationSummary`.
[[nodiscard]] QString json(const std::vector<ConversationSummary> &history);

} // namespace historyList

} // namespace palomet
