#include "audio/EchoReference.h"

#include <algorithm>
#include <limits>

namespace palomet {

namespace {

constexpr std::size_t frameSize = EchoCanceller::frameSize;
constexpr std::size_t capacity = 65536; // 1.4 s: more than any server buffers ahead
constexpr std::size_t watchedFrames = 1000;
constexpr std::size_t watchedFramesAtFirst = 100; // streams that open are out of step by more than they ever are again
constexpr std::size_t noLowest = std::numeric_limits<std::size_t>::max();

} // namespace

EchoReference::EchoReference()
    : m_samples(capacity)
    , m_framesToWatch(watchedFramesAtFirst)
    , m_lowestBacklog(noLowest) {}

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

void EchoReference::settle(std::size_t framesRead) noexcept {
    m_lowestBacklog = std::min(m_lowestBacklog, backlog());
    m_framesToWatch -= std::min(m_framesToWatch, framesRead);
    if (m_framesToWatch > 0)
        return;
    // A backlog of one frame at the lowest is let be: what one late callback brought in would else go in and out.
    if (m_lowestBacklog >= 2 * frameSize)
        m_read += m_lowestBacklog / frameSize * frameSize;
    m_framesToWatch = watchedFrames;
    m_lowestBacklog = noLowest;
}

void EchoReference::clear() noexcept {
    m_read = m_written;
    m_framesToWatch = watchedFramesAtFirst;
    m_lowestBacklog = noLowest;
}

} // namespace palomet
