#include "audio/echo/MaskBands.h"

#include <algorithm>
#include <cmath>

namespace palomet::echo {
namespace {

constexpr double lowest = 60;
constexpr double highest = 7600;
constexpr double binWidth = 16000.0 / FourierTransform::size;

double bandwidthNumber(double hertz) {
    return 21.4 * std::log10(1 + 0.00437 * hertz);
}

} // namespace

MaskBands::MaskBands() {
    const double first = bandwidthNumber(lowest);
    const double apart = (bandwidthNumber(highest) - first) / (count - 1);
    for (std::size_t bin = 0; bin < m_places.size(); ++bin) {
        const double position =
            std::clamp((bandwidthNumber(static_cast<double>(bin) * binWidth) - first) / apart, 0.0, count - 1.0);
        const double band = std::min(std::floor(position), count - 2.0);
        m_places[bin] = {static_cast<std::uint8_t>(band), static_cast<float>(position - band)};
    }
}

} // namespace palomet::echo
