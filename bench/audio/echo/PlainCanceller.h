#pragma once

#include "audio/echo/EchoCanceller.h"

#include <memory>

namespace palomet::bench {

/// The library's canceller with the settings that it comes with, to compare with; null where ours is no more than that.
std::unique_ptr<EchoCanceller> createPlainCanceller();

} // namespace palomet::bench
