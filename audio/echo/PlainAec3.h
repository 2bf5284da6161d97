#pragma once

#include "audio/echo/EchoCanceller.h"

namespace palomet::echo {

/// AEC3 as it comes, its suppressed output alone: all that its package without settings gives.
Result<std::unique_ptr<EchoCanceller>> createPlainAec3();

} // namespace palomet::echo
