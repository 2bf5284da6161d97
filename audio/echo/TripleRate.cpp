#include "audio/echo/TripleRate.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <numbers>

namespace palomet::echo {
namespace {

/// Tap of the ideal filter at `position` samples from its centre, cut to `reach` samples by the window.
double tap(double position, double reach) {
    constexpr double shape = 5.65; // 60 dB.
    const double x = std::numbers::pi * position / 3;
    const double sinc = position == 0 ? 1 : std::sin(x) / x;
    const double inside = 1 - position * position / (reach * reach);
    const double window =
        inside < 0 ? 0 : std::cyl_bessel_i(0, shape * std::sqrt(inside)) / std::cyl_bessel_i(0, shape);
    return sinc * window;
}

} // namespace

TripleRate::TripleRate(int extraDelay)
    : m_extraDelay(extraDelay) {
    assert(extraDelay >= 0 && extraDelay <= maximumExtraDelay);
    for (int phase = 0; phase < 3; ++phase) {
        auto &taps = m_phases[static_cast<std::size_t>(phase)];
        double sum = 0;
        for (int i = 0; i < phaseTaps; ++i) {
            const double value = tap(3 * (i - filterDelay) + phase, 3 * filterDelay + 1);
            taps[static_cast<std::size_t>(i)] = static_cast<float>(value);
            sum += value;
        }
        // All phases pass a constant alike, or it would come out with a 16 kHz tone on it.
        for (float &value : taps)
            value = static_cast<float>(value / sum);
    }
}

void TripleRate::push(std::span<const float, inputSize> in) noexcept {
    std::copy(m_samples.end() - history, m_samples.end(), m_samples.begin());
    std::copy(in.begin(), in.end(), m_samples.begin() + history);
}

std::span<const float, TripleRate::inputSize> TripleRate::delayed() const noexcept {
    const auto begin = static_cast<std::size_t>(history - m_extraDelay - filterDelay);
    return std::span(m_samples).subspan(begin).first<inputSize>();
}

void TripleRate::read(std::span<float, outputSize> out) const noexcept {
    for (std::size_t phase = 0; phase < 3; ++phase) {
        std::array<float, inputSize> sums{};
        for (int i = 0; i < phaseTaps; ++i) {
            const float weight = m_phases[phase][static_cast<std::size_t>(i)];
            const float *samples = m_samples.data() + history - m_extraDelay - i;
            for (int n = 0; n < inputSize; ++n)
                sums[static_cast<std::size_t>(n)] += weight * samples[n];
        }
        for (std::size_t n = 0; n < inputSize; ++n)
            out[3 * n + phase] = sums[n];
    }
}

} // namespace palomet::echo
