#include "audio/echo/EchoReference.h"

#include "audio/SoundServer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace palomet {

namespace {

constexpr std::int64_t frameSize = EchoCanceller::frameSize;
constexpr std::int64_t second = SoundStreams::sampleRate;
constexpr std::int64_t millisecond = second / 1000;
constexpr std::int64_t capacity = 65536; // 1.4 s: more than any server buffers ahead

/// Streams that open are out of step by more than they ever are again: for the first tenths of a second PipeWire tells
/// up to 170 ms too little, and a busy machine takes longer.
constexpr std::int64_t settlingTime = 2 * second;
constexpr std::int64_t shortWatch = second / 10;
constexpr std::int64_t longWatch = 5 * second;
constexpr std::int64_t wantedLead = 20 * millisecond;
constexpr std::int64_t leadThatMayStay = 10 * millisecond; // that the wanted one and another may differ by

constexpr int mostLateInARow = 100; // a stream that has stood still so long does not catch up

constexpr double toleratedStray = 5 * millisecond; // means of five seconds wander by a tenth of that
constexpr double returnTime = 30 * second;
constexpr double mostCorrection = 500e-6; // clocks of sound devices are within 200 ppm

} // namespace

EchoReference::EchoReference()
    : m_samples(capacity) {
    clear();
}

void EchoReference::write(std::span<const float> samples) noexcept {
    for (const float sample : samples) {
        m_samples[static_cast<std::size_t>(m_written++ % capacity)] = sample;
        m_isHeard |= sample != 0;
    }
    m_isPlayed |= !samples.empty();
    // Nobody reads while the microphone is closed.
    m_read = std::max(m_read, m_written - capacity + Interpolator::taps);
}

std::chrono::microseconds EchoReference::follow(std::size_t samples, std::size_t unmatched,
                                                std::chrono::microseconds delay) noexcept {
    using Samples = std::chrono::duration<double, std::ratio<1, second>>;
    const auto count = static_cast<std::int64_t>(samples);
    const double delaySamples = Samples(delay).count();
    const double age = static_cast<double>(backlog() - static_cast<std::int64_t>(unmatched));
    const auto lead = std::chrono::duration_cast<std::chrono::microseconds>(Samples(delaySamples - age));
    // No speakers: nothing leads.
    if (!m_isPlayed)
        return lead;

    m_settling -= std::min(m_settling, count);
    if (m_settling <= settlingTime / 2) {
        const auto captured = m_matched + static_cast<std::int64_t>(unmatched);
        m_drift.add(count, delaySamples - static_cast<double>(m_written - captured));
    }
    if (m_hasBegun)
        m_step = 1 + std::clamp(m_return - m_drift.value(), -mostCorrection, mostCorrection);
    m_watched += count;
    m_delaySum += delaySamples * static_cast<double>(count);
    m_ageSum += age * static_cast<double>(count);
    if (m_watched >= (m_isSettled ? longWatch : shortWatch))
        endWatch(m_delaySum / static_cast<double>(m_watched), m_ageSum / static_cast<double>(m_watched));
    return lead;
}

bool EchoReference::isReady() const noexcept {
    const auto ahead = isWhole() ? 0 : Interpolator::after + 1;
    return !m_hasBegun || backlog() >= frameSize + ahead;
}

void EchoReference::read(EchoCanceller::Frame &frame) noexcept {
    frame.fill(0);
    m_matched += frameSize;
    const bool isLate = !isReady() || backlog() < frameSize;
    m_lateInARow = isLate ? m_lateInARow + 1 : 0;
    if (m_lateInARow > mostLateInARow)
        clear();
    if (isLate && !m_hasBegun)
        return;
    if (isWhole()) {
        for (std::size_t i = 0; i < frame.size(); ++i)
            frame[i] = at(m_read + static_cast<std::int64_t>(i));
        m_read += frameSize;
        return;
    }
    for (float &sample : frame) {
        std::array<float, Interpolator::taps> around{};
        for (std::size_t i = 0; i < around.size(); ++i)
            around[i] = at(m_read - Interpolator::before + static_cast<std::int64_t>(i));
        sample = m_interpolator.between(around, m_fraction);
        m_fraction += m_step;
        const double whole = std::floor(m_fraction);
        m_fraction -= whole;
        m_read += static_cast<std::int64_t>(whole);
    }
}

void EchoReference::clear() noexcept {
    m_read = m_written;
    m_fraction = 0;
    m_step = 1;
    m_return = 0;
    m_drift.clear();
    m_lateInARow = 0;
    m_isPlayed = false;
    m_isHeard = false;
    m_hasBegun = false;
    m_isSettled = false;
    m_settling = settlingTime;
    m_watchedLead = std::numeric_limits<double>::quiet_NaN();
    watchAnew();
}

void EchoReference::endWatch(double delay, double age) noexcept {
    const double lead = delay - age;
    const bool isSteady = std::abs(lead - std::exchange(m_watchedLead, lead)) < toleratedStray;
    if (m_isSettled) {
        const double stray = m_lead - lead;
        m_return = (stray - std::clamp(stray, -toleratedStray, toleratedStray)) / returnTime;
    } else if (isSteady || m_settling == 0) {
        m_isSettled = m_settling == 0;
        const std::int64_t whole = std::llround(delay);
        const auto wantedAge = std::clamp<std::int64_t>(whole - wantedLead, 0, whole / 2);
        const std::int64_t strayed = std::llround(age) - wantedAge;
        // Before the first sound nothing was learned that a jump could undo.
        if (!m_hasBegun || !m_isHeard || (m_isSettled && std::abs(strayed) > leadThatMayStay)) {
            const auto oldest = std::max<std::int64_t>(0, m_written - capacity + Interpolator::taps);
            m_read = std::max(m_read + strayed, oldest);
            m_lead = lead + static_cast<double>(strayed);
        } else if (m_isSettled) {
            m_lead = lead;
        }
        m_hasBegun = true;
    }
    watchAnew();
}

void EchoReference::watchAnew() noexcept {
    m_watched = 0;
    m_delaySum = 0;
    m_ageSum = 0;
}

float EchoReference::at(std::int64_t position) const noexcept {
    return position < 0 || position >= m_written ? 0 : m_samples[static_cast<std::size_t>(position % capacity)];
}

} // namespace palomet
