#include "audio/echo/BandFilter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace palomet::echo {

BandFilter::BandFilter() {
    const auto places = MaskBands().places();
    for (std::size_t tap = 0; tap <= delay; ++tap) {
        const double share = static_cast<double>(tap) / (delay + 1);
        const double window = 0.5 + 0.5 * std::cos(std::numbers::pi * share);
        MaskBands::Each<double> sums{};
        for (std::size_t bin = 0; bin < places.size(); ++bin) {
            const bool isAlone = bin == 0 || bin + 1 == places.size(); // All others stand for two frequencies.
            const auto turn = static_cast<double>(bin * tap % FourierTransform::size) / FourierTransform::size;
            const double wave = (isAlone ? 1 : 2) * std::cos(2 * std::numbers::pi * turn) / FourierTransform::size;
            const auto &[band, upperShare] = places[bin];
            sums[band] += (1 - static_cast<double>(upperShare)) * wave;
            sums[band + 1U] += static_cast<double>(upperShare) * wave;
        }
        for (std::size_t band = 0; band < MaskBands::count; ++band)
            m_bands[band][tap] = static_cast<float>(window * sums[band]);
    }
}

void BandFilter::filter(const Taps &taps, std::size_t count, LowFrame &out) const noexcept {
    const float *const middle = m_samples.data() + delay;
    for (std::size_t n = 0; n < count; ++n)
        out[n] = taps[0] * middle[n];
    for (std::size_t tap = 1; tap <= delay; ++tap) {
        const float *const before = middle - tap;
        const float *const after = middle + tap;
        for (std::size_t n = 0; n < count; ++n)
            out[n] += taps[tap] * (before[n] + after[n]);
    }
}

void BandFilter::process(const LowFrame &in, const MaskBands::Each<float> &gains, LowFrame &out) noexcept {
    std::copy(m_samples.end() - history, m_samples.end(), m_samples.begin());
    std::copy(in.begin(), in.end(), m_samples.begin() + history);
    Taps taps{};
    for (std::size_t band = 0; band < MaskBands::count; ++band) {
        for (std::size_t tap = 0; tap <= delay; ++tap)
            taps[tap] += gains[band] * m_bands[band][tap];
    }
    LowFrame before;
    filter(m_taps, fade, before);
    filter(taps, lowFrameSize, out);
    for (std::size_t n = 0; n < fade; ++n) {
        const float share = static_cast<float>(n + 1) / (fade + 1);
        out[n] = before[n] + share * (out[n] - before[n]);
    }
    m_taps = taps;
}

} // namespace palomet::echo
