#pragma once

#include "bench/audio/echo/Measures.h"

#include <memory>

namespace palomet::bench {

/// Takes the recording the whole way that the program's microphone goes: played and heard in odd pieces at odd times,
/// by latencies that are told with an error of a millisecond.
Processed processOnPath(const Recording &recording, const Scenario &scenario, std::unique_ptr<EchoCanceller> canceller);

} // namespace palomet::bench
