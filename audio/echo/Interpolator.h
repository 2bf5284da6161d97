#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace palomet {

/// Values between samples, by a windowed sinc of sixteen taps with Kaiser's window (Oppenheim and Schafer,
/// "Discrete-Time Signal Processing", on fractional delay). Speech up to 8 kHz at 48 kHz comes out with errors below
/// -50 dB; a value that falls on a sample is that sample.
class Interpolator {
public:
    static constexpr int taps = 16;
    /// Samples needed before the one that the value follows, and from the next one on.
    static constexpr int before = taps / 2 - 1;
    static constexpr int after = taps / 2;

    Interpolator();

    /// The value `fraction` of a sample, 0 to 1, behind `around[before]`.
    [[nodiscard]] float between(std::span<const float, taps> around, double fraction) const noexcept;

private:
    static constexpr int phases = 256;
    std::array<std::array<float, taps>, phases + 1> m_taps{};
};

} // namespace palomet
