#pragma once

#include "audio/echo/EchoMatch.h"
#include "audio/echo/Samples.h"

#include <span>

namespace palomet::echo {

/// Keeps a linear filter at the level that it knows. Speakers or a microphone that were turned up or down change
/// nothing but the level of the echo, which the filter would need seconds to learn; so it is given the microphone at
/// the level that it knows, and what comes of that is turned back. The level then returns by little and little, and the
/// filter follows.
class EchoLevel {
public:
    /// Makes the microphone's next frame as loud as the filter knows it.
    void lower(EchoCanceller::Frame &microphone) noexcept;

    /// Makes what has become of that frame, `aec3Delay` samples later, as loud as the microphone was.
    void restore(EchoCanceller::Frame &output) noexcept;

    /// Goes by what the filter was given of a frame and what it left of it, in step.
    void follow(std::span<const float> microphone, std::span<const float> linear, bool isPlaying) noexcept;

    /// By how much the microphone's last frame was lowered, as a factor of its amplitude.
    [[nodiscard]] float lowered() const noexcept { return m_current; }

    /// `EchoMatch::likeness` of the last frame.
    [[nodiscard]] float likeness() const noexcept { return m_likeness; }

private:
    EchoMatch m_match;
    float m_likeness = 0;
    float m_next = 1;    ///< How much louder the echo is than the filter learned it.
    float m_current = 1; ///< The same, of the frame that was lowered.
    float m_before = 1;  ///< Of the one before that.
};

} // namespace palomet::echo
