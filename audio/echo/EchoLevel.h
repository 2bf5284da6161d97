#pragma once

#include "audio/echo/EchoMatch.h"
#include "audio/echo/Samples.h"

#include <span>

namespace palomet::echo {

/// Keeps a linear filter at the level that it knows. Speakers or a microphone that were turned up or down change
/// nothing but the level of the echo, which the filter would need seconds to learn; so it is given the microphone at
/// the level that it knows, and what comes of that is turned back. The level then returns by little and little, and the
/// filter follows.
///
/// That they were turned is seen by the echo itself (`EchoMatch`) or told by the sound server. What is told can be
/// heard a little later, on one way sooner than on another: as soon as the echo bears it out, or has sounded for so
/// long.
class EchoLevel {
public:
    /// By what the sound server tells, the echo is from about now on so many times as loud.
    void turned(float factor) noexcept;

    /// Makes the microphone's next frame as loud as the filter knows it.
    void lower(EchoCanceller::Frame &microphone) noexcept;

    /// Makes what has become of that frame, `aec3Delay` samples later, as loud as the microphone was.
    void restore(EchoCanceller::Frame &output) noexcept;

    /// Goes by what the filter was given of a frame and what it left of it, in step.
    void follow(std::span<const float> microphone, std::span<const float> linear, bool isPlaying) noexcept;

    /// By how much the microphone's last frame was lowered, as a factor of its amplitude.
    [[nodiscard]] float lowered() const noexcept { return m_current; }

    /// The speakers or the microphone were turned a moment ago, or the echo broke off for a moment, and what the filter
    /// leaves is still more echo than anything else.
    [[nodiscard]] bool isUnsettled() const noexcept { return m_unsettledFrames > 0; }

    /// `EchoMatch::likeness` of the last frame.
    [[nodiscard]] float likeness() const noexcept { return m_likeness; }

private:
    /// By how much louder the echo became with this frame, as far as anybody can tell; 1 if by nothing.
    float takeChange() noexcept;

    EchoMatch m_match;
    float m_likeness = 0;
    float m_told = 1;      ///< By how much louder the server tells the echo to be, as far as that was not borne out.
    float m_seen = 1;      ///< By how much it was seen to become louder a moment ago, which may be told still.
    int m_heardFrames = 0; ///< Of the echo since either.
    int m_unsettledFrames = 0; ///< Of the echo that are left until all is settled.
    float m_next = 1;          ///< How much louder the echo is than the filter learned it.
    float m_current = 1;       ///< The same, of the frame that was lowered.
    float m_before = 1;        ///< Of the one before that.
};

} // namespace palomet::echo
