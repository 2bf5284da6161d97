#pragma once

#include "audio/EchoCanceller.h"

#include <cstdint>
#include <span>
#include <vector>

namespace palomet {

/// What was handed to the speakers and not yet compared with the microphone, oldest sample first. The two streams run
/// on callbacks of their own sizes; what stands between them is the age of the reference, and a steady age is what the
/// echo canceller lives on: each change of it is a room to be learned anew. So nothing is matched by time: samples are
/// counted.
///
/// For the first second, a frame that is not there yet is silence and makes the reference one frame older, until it is
/// as old as the callbacks need; then it is made older by half of what its echo takes, so that none comes too late
/// again. What comes too late all the same, because the machine was busy, has not been played in time either: it was
/// silence, and is passed over when it comes. A reference older than its echo is worth nothing: where that is near, age
/// that no callback has needed for ten seconds, or for that first one, is given back. Real-time thread only.
class EchoReference {
public:
    EchoReference();

    void write(std::span<const float> samples) noexcept;

    /// The next frame, with silence for what is not there yet.
    void read(EchoCanceller::Frame &frame) noexcept;

    /// To be called when a microphone buffer has been worked through, with the time from reference to echo, as far as
    /// it is known, at its beginning: corrects the age when that is due.
    void settle(int framesRead, int delayMs) noexcept;

    /// Forgets everything.
    void clear() noexcept;

    /// Samples written and not yet read: the age of the next frame. Negative while some are late.
    [[nodiscard]] std::int64_t backlog() const { return m_written - m_read; }

private:
    void growOlder(int frames) noexcept;
    void watchAnew(int frames) noexcept;

    std::vector<float> m_samples;
    std::int64_t m_written = 0; ///< A position, as the next one is; they only grow.
    std::int64_t m_read = 0;
    int m_lateInARow = 0;    ///< Frames that were not there.
    bool m_hasBegun = false; ///< The first second is over.
    // Of the watch that is under way:
    int m_framesToWatch = 0;
    int m_lateFrames = 0;
    std::int64_t m_lowestBacklog = 0; ///< Each time after reading.
    int m_longestDelayMs = 0;
};

} // namespace palomet
