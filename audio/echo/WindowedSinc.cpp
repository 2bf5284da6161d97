#include "audio/echo/WindowedSinc.h"

#include <cmath>
#include <numbers>

namespace palomet::echo {
namespace {

double windowedSinc(double position, double spacing, double reach) {
    constexpr double shape = 5.65; // 60 dB.
    const double inside = 1 - position * position / (reach * reach);
    if (inside < 0)
        return 0;
    const double x = std::numbers::pi * position / spacing;
    const double sinc = position == 0 ? 1 : std::sin(x) / x;
    return sinc * (std::cyl_bessel_i(0, shape * std::sqrt(inside)) / std::cyl_bessel_i(0, shape));
}

} // namespace

void fillWithWindowedSinc(std::span<float> taps, double first, double spacing, double reach) {
    double sum = 0;
    for (std::size_t i = 0; i < taps.size(); ++i) {
        const double value = windowedSinc(first + static_cast<double>(i) * spacing, spacing, reach);
        taps[i] = static_cast<float>(value);
        sum += value;
    }
    for (float &tap : taps)
        tap = static_cast<float>(tap / sum);
}

} // namespace palomet::echo
