#pragma once

#include "audio/EchoCanceller.h"

#include <cstddef>
#include <span>
#include <vector>

namespace palomet {

/// What was handed to the speakers and not yet compared with the microphone, oldest sample first. The two streams run
/// on callbacks of their own sizes; what stands between them is the age of the reference, and a steady age is what the
/// echo canceller lives on: each change of it is a room to be learned anew. So nothing is matched by time: samples are
/// counted. A frame that is not there yet is silence and makes the reference one frame older from then on. Lest that
/// happens whenever the machine is busy, the reference is made older at once, a second after the beginning, by half of
/// what its echo takes. A reference older than its echo is worth nothing: where that is near, age that no callback has
/// needed for ten seconds, or for that first one, is given back. Real-time thread only.
class EchoReference {
public:
    EchoReference();

    void write(std::span<const float> samples) noexcept;

    /// The next frame, or silence while there is less than a frame.
    void read(EchoCanceller::Frame &frame) noexcept;

    /// To be called when a microphone buffer has been worked through, with the time from reference to echo, as far as
    /// it is known, at its beginning: corrects the age when that is due.
    void settle(std::size_t framesRead, int delayMs) noexcept;

    /// Forgets everything.
    void clear() noexcept;

    /// Samples written and not yet read: the age of the next frame.
    [[nodiscard]] std::size_t backlog() const { return m_written - m_read; }

private:
    void growOlder(std::size_t frames) noexcept;
    void watchAnew(std::size_t frames) noexcept;

    std::vector<float> m_samples;
    std::size_t m_written = 0; ///< Positions only grow.
    std::size_t m_read = 0;
    bool m_hasBegun = false; ///< The first second is over.
    // Of the watch that is under way:
    std::size_t m_framesToWatch = 0;
    std::size_t m_lowestBacklog = 0; ///< Each time after reading.
    int m_longestDelayMs = 0;
};

} // namespace palomet
