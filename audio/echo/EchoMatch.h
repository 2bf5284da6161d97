#pragma once

#include <span>

namespace palomet::echo {

/// Tells how well the echo that a linear filter expects matches the one that came, a frame of 10 ms at a time. The
/// echo that it expects is what it took out of the microphone. What it left is somebody's voice, or echo that it does
/// not know how to expect; but when it is that very echo, only louder or softer, then the speakers or the microphone
/// were turned up or down.
class EchoMatch {
public:
    /// What the filter was given and what it left of that, in step.
    void take(std::span<const float> microphone, std::span<const float> linear) noexcept;

    /// The part of what was left that is the expected echo once more, 0 to 1; 0 where that would not make the echo
    /// louder or softer by more than a decibel and a half, for then it is hardly to be heard.
    [[nodiscard]] float likeness() const noexcept { return m_likeness; }

    /// By which factor the echo is surely louder than expected; 1 while it is as expected or nobody can tell.
    [[nodiscard]] float mismatch() const noexcept { return m_mismatch; }

    /// What is given to the filter has changed: what was seen before says nothing any more.
    void restart() noexcept;

private:
    // Smoothed: products of the microphone and the expected echo.
    float m_cross = 0;
    float m_expected = 0;
    float m_microphone = 0;
    float m_likeness = 0;
    float m_mismatch = 1;
    int m_alike = 0;   ///< Frames in a row in which what was left was the echo.
    int m_skipped = 0; ///< Frames that are still to be passed over.
};

} // namespace palomet::echo
