#include "audio/echo/ClockDrift.h"

#include "audio/SoundServer.h"

#include <algorithm>
#include <cmath>

namespace palomet {

namespace {

constexpr std::int64_t momentLength = SoundStreams::sampleRate / 2;

/// In standard deviations. Errors of one moment and the next are not independent: a stream's clock is asked for every
/// second at most. In the first seconds less will do, for until clocks that are apart are known the echo is left loud
/// enough to be taken for somebody, and a few parts per million too many harm nothing.
double confidence(std::size_t count) {
    constexpr std::size_t beginning = 24;
    return count < beginning ? 3 : 4;
}

} // namespace

void ClockDrift::add(std::int64_t samples, double distance) noexcept {
    m_sum += distance * static_cast<double>(samples);
    m_watched += samples;
    if (m_watched < momentLength)
        return;
    m_time += m_watched;
    m_moments[m_next] = {static_cast<double>(m_time) - static_cast<double>(m_watched) / 2,
                         m_sum / static_cast<double>(m_watched)};
    m_next = (m_next + 1) % moments;
    m_count = std::min(m_count + 1, moments);
    m_sum = 0;
    m_watched = 0;
    look();
}

void ClockDrift::look() noexcept {
    const std::size_t first = m_count == moments ? m_next : 0;
    std::size_t pairs = 0;
    for (std::size_t later = 1; later < m_count; ++later) {
        for (std::size_t earlier = 0; earlier < later; ++earlier) {
            const auto &[from, before] = m_moments[(first + earlier) % moments];
            const auto &[to, after] = m_moments[(first + later) % moments];
            m_slopes[pairs++] = (after - before) / (to - from);
        }
    }
    // The deviation of Kendall's score, under no drift at all.
    const auto n = static_cast<double>(m_count);
    const double deviation = std::sqrt(n * (n - 1) * (2 * n + 5) / 18);
    const double rank = (static_cast<double>(pairs) - confidence(m_count) * deviation) / 2;
    if (rank < 0)
        return;
    const auto slope = [&](std::size_t place) {
        const auto at = m_slopes.begin() + static_cast<std::ptrdiff_t>(place);
        std::nth_element(m_slopes.begin(), at, m_slopes.begin() + static_cast<std::ptrdiff_t>(pairs));
        return *at;
    };
    const auto edge = static_cast<std::size_t>(rank);
    const double least = slope(edge);
    const double most = slope(pairs - 1 - edge);
    m_value = std::clamp(m_value, least, most);
}

void ClockDrift::clear() noexcept {
    m_value = 0;
    m_time = 0;
    m_watched = 0;
    m_sum = 0;
    m_count = 0;
    m_next = 0;
}

} // namespace palomet
