#pragma once

#include "bench/audio/echo/Scenario.h"

namespace palomet::bench {

/// `record` for the scenarios of `hardScenarios`.
Result<Recording> recordHardship(const Scenario &scenario, const Hardship &hardship, Speaker &speaker);

} // namespace palomet::bench
