#pragma once

#include <cstdio>

namespace palomet {

/// Whether somebody looks at what is written there.
[[nodiscard]] bool isTerminal(std::FILE *stream);

} // namespace palomet
