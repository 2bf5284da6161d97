#pragma once

#include "bench/audio/echo/Signal.h"

#include <array>
#include <vector>

namespace palomet::bench {

/// A place in a room, in metres.
using Place = std::array<double, 3>;

/// A room with six walls that all reflect alike.
class Room {
public:
    /// As large as a study or a living room, by the seed; `reverberation` is RT60 in seconds.
    Room(double reverberation, std::uint32_t seed);

    /// Somewhere in it, not close to a wall, by the seed.
    [[nodiscard]] Place place(std::uint32_t seed) const;

    /// A place so far away from another one, as far as the room allows it, in a direction by the seed.
    [[nodiscard]] Place beside(const Place &place, double distance, std::uint32_t seed) const;

    /// From a source to a microphone: the direct sound first, without the time that it takes, at its level at half a
    /// metre. Image sources for the first tenth of a second (J. B. Allen, D. A. Berkley, Image method for efficiently
    /// simulating small-room acoustics, 1979), behind it noise that falls off likewise.
    [[nodiscard]] Signal response(const Place &source, const Place &microphone) const;

private:
    double m_reverberation;
    std::uint32_t m_seed;
    std::array<double, 3> m_size;
};

/// The signal as heard from a source that goes from one response to the next while `from` becomes `to`, in seconds: by
/// the first before, by the last after.
Signal heardInMotion(const Signal &signal, const std::vector<Signal> &responses, double from, double to);

} // namespace palomet::bench
