#pragma once

#include <array>
#include <span>

namespace palomet::echo {

/// Brings 16 kHz up to 48 kHz in frames of 10 ms by a polyphase filter: a Kaiser-windowed sinc of 97 taps at 48 kHz,
/// of which every output sample meets a third (J. G. Proakis, D. G. Manolakis, Digital Signal Processing, 4th ed.,
/// 11.5). Flat to 7 kHz; what it mirrors above 9 kHz is 60 dB down. Delays by `filterDelay` and `extraDelay` samples at
/// 16 kHz.
class TripleRate {
public:
    static constexpr int inputSize = 160;
    static constexpr int outputSize = 3 * inputSize;
    static constexpr int filterDelay = 16;

    explicit TripleRate(int extraDelay);

    /// Takes the next frame.
    void push(std::span<const float, inputSize> in) noexcept;

    /// The frame that `read` would give, as it was at 16 kHz.
    [[nodiscard]] std::span<const float, inputSize> delayed() const noexcept;

    /// The frame that belongs to the last `push`. May be left out: most of the cost is here.
    void read(std::span<float, outputSize> out) const noexcept;

private:
    static constexpr int phaseTaps = 2 * filterDelay + 1;
    static constexpr int maximumExtraDelay = 64;
    static constexpr int history = phaseTaps - 1 + maximumExtraDelay;

    std::array<std::array<float, phaseTaps>, 3> m_phases;
    std::array<float, history + inputSize> m_samples{}; ///< The past, then this frame.
    int m_extraDelay;
};

} // namespace palomet::echo
