#pragma once

#include "audio/echo/MaskBands.h"
#include "audio/echo/MaskSignals.h"

#include <array>

namespace palomet::echo {

/// Gives a signal at 16 kHz another gain in each band: a filter of linear phase that is put together anew for each
/// frame from those of the bands, and that takes over within 5 ms. Late by `delay`, whatever the gains: a bank of
/// windows that overlap would be late by 10 ms. With all gains 1 the signal comes out as it is, with all 0 silence.
class BandFilter {
public:
    static constexpr std::size_t delay = 56; ///< Samples.

    BandFilter();

    void process(const LowFrame &in, const MaskBands::Each<float> &gains, LowFrame &out) noexcept;

private:
    static constexpr std::size_t history = 2 * delay;
    static constexpr std::size_t fade = lowFrameSize / 2;
    using Taps = std::array<float, delay + 1>; ///< From the middle to either end.

    void filter(const Taps &taps, std::size_t count, LowFrame &out) const noexcept;

    std::array<Taps, MaskBands::count> m_bands;
    Taps m_taps{}; ///< Of the last frame.
    std::array<float, history + lowFrameSize> m_samples{};
};

} // namespace palomet::echo
