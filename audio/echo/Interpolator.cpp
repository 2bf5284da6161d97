#include "audio/echo/Interpolator.h"

#include <cmath>
#include <numbers>

namespace palomet {

namespace {

/// Tap of the ideal filter at `position` samples from its centre, cut by the window.
double tap(double position) {
    constexpr double shape = 5.65; // 60 dB.
    constexpr double reach = Interpolator::taps / 2.0;
    const double inside = 1 - position * position / (reach * reach);
    if (inside <= 0)
        return 0;
    const double x = std::numbers::pi * position;
    const double sinc = position == 0 ? 1 : std::sin(x) / x;
    return sinc * std::cyl_bessel_i(0, shape * std::sqrt(inside)) / std::cyl_bessel_i(0, shape);
}

} // namespace

Interpolator::Interpolator() {
    for (int phase = 1; phase < phases; ++phase) {
        auto &row = m_taps[static_cast<std::size_t>(phase)];
        double sum = 0;
        for (int i = 0; i < taps; ++i) {
            const double value = tap(i - before - static_cast<double>(phase) / phases);
            row[static_cast<std::size_t>(i)] = static_cast<float>(value);
            sum += value;
        }
        // All phases pass a constant alike, or a fraction that moves would be heard.
        for (float &value : row)
            value = static_cast<float>(value / sum);
    }
    m_taps[0][before] = 1;
    m_taps[phases][after] = 1;
}

float Interpolator::between(std::span<const float, taps> around, double fraction) const noexcept {
    const auto &row = m_taps[static_cast<std::size_t>(std::lround(fraction * phases))];
    float sum = 0;
    for (std::size_t i = 0; i < taps; ++i)
        sum += row[i] * around[i];
    return sum;
}

} // namespace palomet
