#include "audio/echo/TripleRate.h"

#include "audio/echo/WindowedSinc.h"

#include <algorithm>
#include <cassert>

namespace palomet::echo {

TripleRate::TripleRate(int extraDelay)
    : m_extraDelay(extraDelay) {
    assert(extraDelay >= 0 && extraDelay <= maximumExtraDelay);
    for (int phase = 0; phase < 3; ++phase)
        fillWithWindowedSinc(m_phases[static_cast<std::size_t>(phase)], phase - 3 * filterDelay, 3,
                             3 * filterDelay + 1);
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
