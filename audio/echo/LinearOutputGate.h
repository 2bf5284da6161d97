#pragma once

namespace palomet::echo {

/// Decides, a frame of 10 ms at a time, which of a canceller's two outputs is the better one: what the linear filter
/// left, in which the near end is whole and some echo remains, or what the suppressor made of it, in which the echo is
/// gone and with it, now and then, a piece of the near end.
///
/// The linear output is the better one while somebody here talks and the filter is good. Somebody talks when the
/// suppressor lets most of the linear output through for three frames, and that is not echo; a word is then not cut off
/// for fifteen. The filter is judged by how much of the microphone it leaves while only the far end talks.
class LinearOutputGate {
public:
    /// Mean squares of the same 10 ms, at full scale 1.
    struct Powers {
        float reference = 0;
        float microphone = 0;
        float linear = 0;
        float suppressed = 0;
        float likeness = 0; ///< The part of the linear output that is certainly echo.
    };

    /// A filter has surely begun when the far end has talked for so many frames.
    explicit LinearOutputGate(int beginning = 250)
        : m_beginningFrames(beginning) {}

    void take(const Powers &powers) noexcept;

    /// True when the last frame is to be the linear output.
    [[nodiscard]] bool isLinearBetter() const noexcept { return m_heldFrames > 0 && m_residual < goodResidual; }

    /// True while the far end talks and neither output is worth anything: the filter has only begun, or what it left is
    /// the echo. That a filter finds no echo to take out does not mean that it has not begun; so it begins but once.
    [[nodiscard]] bool isEcho() const noexcept { return m_isEcho; }

private:
    static constexpr float goodResidual = 0.1F; // -10 dB.

    Powers m_smoothed;
    float m_reference = 0; ///< Envelope of the far end.
    /// The part of the microphone that the linear filter leaves while only the far end talks; 1 before it was measured.
    float m_residual = 1;
    bool m_isEcho = false;
    int m_beginningFrames;   ///< Of the far end that are left of the filter's beginning.
    int m_nearEndFrames = 0; ///< In which the near end was heard, in a row.
    int m_heldFrames = 0;    ///< For which it counts as heard still.
};

} // namespace palomet::echo
