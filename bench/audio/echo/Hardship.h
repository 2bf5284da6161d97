#pragma once

#include "bench/audio/echo/Scenario.h"

namespace palomet::bench {

/// What the two of a scenario say.
struct Talks {
    Speaker::Talk program;
    Speaker::Talk user;
};

/// `record` for the scenarios of `hardScenarios`.
Result<Recording> recordHardship(const Scenario &scenario, const Hardship &hardship, Talks talks, Speaker &speaker);

} // namespace palomet::bench
