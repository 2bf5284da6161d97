#include "audio/echo/Interpolator.h"

#include "audio/echo/WindowedSinc.h"

#include <cmath>

namespace palomet {

Interpolator::Interpolator() {
    for (int phase = 1; phase < phases; ++phase)
        echo::fillWithWindowedSinc(m_taps[static_cast<std::size_t>(phase)],
                                   -before - static_cast<double>(phase) / phases, 1, taps / 2.0);
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
