#include "audio/EchoReference.h"

#include <algorithm>
#include <limits>

namespace palomet {

namespace {

constexpr std::size_t frameSize = EchoCanceller::frameSize;
constexpr std::size_t capacity = 65536; // 1.4 s: more than any server buffers ahead
constexpr std::size_t watchedFrames = 1000;
constexpr std::size_t noLowest = std::numeric_limits<std::size_t>::max();

} // namespace

EchoReference::EchoReference()
    : m_samples(capacity)
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
    m_framesWatched += framesRead;
    if (m_framesWatched < watchedFrames)
        return;
    // One frame is left in hand, so that what is given back is not missed a moment later.
    if (m_lowestBacklog >= 2 * frameSize)
        m_read += m_lowestBacklog / frameSize * frameSize - frameSize;
    m_framesWatched = 0;
    m_lowestBacklog = noLowest;
}

void EchoReference::clear() noexcept {
    m_read = m_written;
    m_framesWatched = 0;
    m_lowestBacklog = noLowest;
}

} // namespace palomet
