#pragma once

#include "audio/EchoCanceller.h"

#include <cstddef>
#include <span>
#include <vector>

namespace palomet {

/// What was handed to the speakers and not yet compared with the microphone, oldest sample first. The two streams run
/// on callbacks of their own sizes; what stands between them is the age of the reference, and a steady age is what the
/// echo canceller lives on. So nothing is matched by time: samples are counted. A frame that is not there yet is
/// silence and makes the reference one frame older from then on, until no callback comes too late for it any more. Age
/// that no callback has needed for ten seconds, or for one after the beginning, is given back: a reference older than
/// its echo is worth nothing. Real-time thread only.
class EchoReference {
public:
    EchoReference();

    void write(std::span<const float> samples) noexcept;

    /// The next frame, or silence while there is less than a frame.
    void read(EchoCanceller::Frame &frame) noexcept;

    /// To be called when a microphone buffer has been worked through: notices age that nobody needs.
    void settle(std::size_t framesRead) noexcept;

    /// Forgets everything.
    void clear() noexcept;

    /// Samples written and not yet read: the age of the next frame.
    [[nodiscard]] std::size_t backlog() const { return m_written - m_read; }

private:
    std::vector<float> m_samples;
    std::size_t m_written = 0; ///< Positions only grow.
    std::size_t m_read = 0;
    std::size_t m_framesToWatch;
    std::size_t m_lowestBacklog; ///< Since the watch began, each time after reading.
};

} // namespace palomet
