#pragma once

#include "base/Result.h"

#include <optional>

namespace palomet {

/// Whether this process may run so many more threads, by starting them, all at a time, and ending them: the reason in
/// the system's words if it may not. A matter of a millisecond.
[[nodiscard]] std::optional<Failure> trialOfThreads(int count);

} // namespace palomet
