#pragma once

#include "audio/echo/EchoCanceller.h"
#include "bench/audio/echo/Scenario.h"

#include <optional>

namespace palomet::bench {

/// The rate that the backend is given; all that is measured is measured at it.
inline constexpr int heardRate = 16000;

/// The signal as the resampler brings it down to that rate.
Signal asHeard(const Signal &signal);

/// The signal that goes up to the backend.
struct Processed {
    Signal samples;
    double microsecondsAFrame = 0; ///< Mean over all frames of 10 ms, render and capture together.
};

/// Takes the recording through the canceller, or past it where there is none, and to the backend's rate.
Processed process(const Recording &recording, const Scenario &scenario, EchoCanceller *canceller);

struct Measures {
    double erleDb = 0;                     ///< Over the second half of the program's first turn and all of its last.
    std::optional<double> secondsTo20Db;   ///< From the first word on; none when never reached.
    std::optional<double> recoverySeconds; ///< The same from the jump of the delay on.
    double lostPercent = 0;                ///< Of the near end's strong frames while both talk: cut by over 10 dB.
    double ownVoiceDb = -120;              ///< The loudest tenth of a second of the output while the program is alone.
    double spectralDistanceDb = 0;         ///< Log-spectral distance to the near end in these frames.
};

Measures measure(const Recording &recording, const Scenario &scenario, const Processed &processed);

} // namespace palomet::bench
