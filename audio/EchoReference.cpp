#include "audio/EchoReference.h"

#include <algorithm>
#include <limits>

namespace palomet {

namespace {

constexpr std::int64_t frameSize = EchoCanceller::frameSize;
constexpr std::int64_t capacity = 65536; // 1.4 s: more than any server buffers ahead
constexpr int frameMs = 10;
constexpr int watchedFrames = 1000;
constexpr int watchedFramesAtFirst = 100; // streams that open are out of step by more than they ever are again
constexpr int leastLeadMs = 20;           // by which the reference is to come before its echo
constexpr int mostLateInARow = 100;       // a stream that has stood still so long does not catch up
constexpr int mostLateWatched = watchedFrames / 20; // more is no accident: the callbacks are not what they were

} // namespace

EchoReference::EchoReference()
    : m_samples(capacity) {
    clear();
}

void EchoReference::write(std::span<const float> samples) noexcept {
    for (const float sample : samples)
        m_samples[static_cast<std::size_t>(m_written++ % capacity)] = sample;
    // Nobody reads while the microphone is closed.
    m_read = std::max(m_read, m_written - capacity);
}

void EchoReference::read(EchoCanceller::Frame &frame) noexcept {
    frame.fill(0);
    const bool isLate = backlog() < frameSize;
    m_lateInARow = isLate ? m_lateInARow + 1 : 0;
    if (m_lateInARow > mostLateInARow)
        clear();
    if (isLate && !m_hasBegun)
        return;
    m_lateFrames += isLate ? 1 : 0;
    const auto count = std::clamp(backlog(), std::int64_t{0}, frameSize);
    for (std::int64_t i = 0; i < count; ++i)
        frame[static_cast<std::size_t>(i)] = m_samples[static_cast<std::size_t>((m_read + i) % capacity)];
    m_read += frameSize;
}

void EchoReference::settle(int framesRead, int delayMs) noexcept {
    m_lowestBacklog = std::min(m_lowestBacklog, backlog());
    m_longestDelayMs = std::max(m_longestDelayMs, delayMs);
    m_framesToWatch -= framesRead;
    if (m_framesToWatch > 0)
        return;
    if (m_longestDelayMs < leastLeadMs) {
        // A backlog of one frame at the lowest is let be: what one late callback brought in would else go in and out.
        if (m_lowestBacklog >= 2 * frameSize)
            m_read += m_lowestBacklog / frameSize * frameSize;
    } else if (!m_hasBegun) {
        growOlder(delayMs / 2 / frameMs);
    } else if (m_lateFrames > mostLateWatched) {
        growOlder(1);
    }
    m_hasBegun = true;
    watchAnew(watchedFrames);
}

void EchoReference::clear() noexcept {
    m_read = m_written;
    m_lateInARow = 0;
    m_hasBegun = false;
    watchAnew(watchedFramesAtFirst);
}

void EchoReference::growOlder(int frames) noexcept {
    const auto oldest = std::max<std::int64_t>(0, m_written - capacity);
    m_read = std::max(std::min(oldest, m_read), m_read - frames * frameSize);
}

void EchoReference::watchAnew(int frames) noexcept {
    m_framesToWatch = frames;
    m_lateFrames = 0;
    m_lowestBacklog = std::numeric_limits<std::int64_t>::max();
    m_longestDelayMs = 0;
}

} // namespace palomet
