#include "audio/EchoReference.h"

#include <algorithm>
#include <limits>

namespace palomet {

namespace {

constexpr std::size_t frameSize = EchoCanceller::frameSize;
constexpr std::size_t capacity = 65536; // 1.4 s: more than any server buffers ahead
constexpr std::size_t watchedFrames = 1000;
constexpr std::size_t watchedFramesAtFirst = 100; // streams that open are out of step by more than they ever are again
constexpr int leastLeadMs = 20;                   // by which the reference is to come before its echo
constexpr int frameMs = 10;

} // namespace

EchoReference::EchoReference()
    : m_samples(capacity) {
    clear();
}

void EchoReference::write(std::span<const float> samples) noexcept {
    for (const float sample : samples)
        m_samples[m_written++ % capacity] = sample;
    // Nobody reads while the microphone is closed.
    m_read = std::max(m_read, m_written - std::min(m_written, capacity));
}

void EchoReference::read(EchoCanceller::Frame &frame) noexcept {
    if (backlog() < frameSize) {
        frame.fill(0);
        return;
    }
    for (float &sample : frame)
        sample = m_samples[m_read++ % capacity];
}

void EchoReference::settle(std::size_t framesRead, int delayMs) noexcept {
    m_lowestBacklog = std::min(m_lowestBacklog, backlog());
    m_longestDelayMs = std::max(m_longestDelayMs, delayMs);
    m_framesToWatch -= std::min(m_framesToWatch, framesRead);
    if (m_framesToWatch > 0)
        return;
    if (m_longestDelayMs < leastLeadMs) {
        // A backlog of one frame at the lowest is let be: what one late callback brought in would else go in and out.
        if (m_lowestBacklog >= 2 * frameSize)
            m_read += m_lowestBacklog / frameSize * frameSize;
    } else if (!m_hasBegun) {
        growOlder(static_cast<std::size_t>(delayMs / 2 / frameMs));
    }
    m_hasBegun = true;
    watchAnew(watchedFrames);
}

void EchoReference::clear() noexcept {
    m_read = m_written;
    m_hasBegun = false;
    watchAnew(watchedFramesAtFirst);
}

void EchoReference::growOlder(std::size_t frames) noexcept {
    const auto oldest = m_written - std::min(m_written, capacity);
    m_read -= std::min(frames * frameSize, m_read - oldest);
}

void EchoReference::watchAnew(std::size_t frames) noexcept {
    m_framesToWatch = frames;
    m_lowestBacklog = std::numeric_limits<std::size_t>::max();
    m_longestDelayMs = 0;
}

} // namespace palomet
