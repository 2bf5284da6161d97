#pragma once

#include "platform/pulse/PulseClock.h"

#include <pulse/stream.h>

#include <chrono>

namespace palomet {

/// The stream that plays, for the one that records: the latency of both is worth something only when it is asked for at
/// the same moment. Under the main loop's lock.
struct PulseSpeakers {
    pa_stream *stream = nullptr; ///< None while nothing plays.

    /// How long a sample that were written now would take to leave the speakers; zero without a stream.
    [[nodiscard]] std::chrono::microseconds latency() const noexcept {
        return stream ? PulseClock::latency(stream) : std::chrono::microseconds{};
    }
};

} // namespace palomet
