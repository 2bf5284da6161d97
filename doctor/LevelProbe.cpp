#include "doctor/LevelProbe.h"

#include <algorithm>
#include <cmath>

namespace palomet {

namespace {

constexpr auto relaxed = std::memory_order_relaxed;

} // namespace

void LevelProbe::captured(std::span<const float> samples, std::chrono::microseconds) noexcept {
    if (m_isRestartWanted.exchange(false, relaxed)) {
        m_sumOfSquares.store(0, relaxed);
        m_count.store(0, relaxed);
        m_peak.store(0, relaxed);
    }
    double sum = m_sumOfSquares.load(relaxed);
    double peak = 0;
    for (const float sample : samples) {
        sum += double{sample} * sample;
        peak = std::max(peak, std::abs(double{sample}));
    }
    m_sumOfSquares.store(sum, relaxed);
    m_peak.store(std::max(peak, m_peak.load(relaxed)), relaxed);
    m_recentPeak.store(std::max(peak, m_recentPeak.load(relaxed)), relaxed);
    m_count.store(m_count.load(relaxed) + static_cast<std::int64_t>(samples.size()), relaxed);
}

void LevelProbe::fill(std::span<float> samples) noexcept {
    std::fill(samples.begin(), samples.end(), 0.0F);
    m_hasPlayed.store(true, relaxed);
}

void LevelProbe::heard(std::int64_t) noexcept {}

void LevelProbe::turned(float) noexcept {}

void LevelProbe::playbackOpened() noexcept {}

std::optional<SoundLevel> LevelProbe::level() const {
    const auto count = m_count.load(relaxed);
    if (count == 0 || m_isRestartWanted.load(relaxed))
        return std::nullopt;
    return SoundLevel{m_peak.load(relaxed), std::sqrt(m_sumOfSquares.load(relaxed) / static_cast<double>(count))};
}

} // namespace palomet
