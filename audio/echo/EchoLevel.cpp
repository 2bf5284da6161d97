#include "audio/echo/EchoLevel.h"

#include "audio/echo/RestingCanceller.h"

#include <algorithm>

namespace palomet::echo {

namespace {

constexpr float least = 0.25F; // Or what is loud would be beyond full scale.
constexpr float most = 10;
constexpr float aFrame = 1.00115F; // 1 dB a second.

} // namespace

void EchoLevel::lower(EchoCanceller::Frame &microphone) noexcept {
    m_before = m_current;
    m_current = m_next;
    for (float &sample : microphone)
        sample /= m_current;
}

void EchoLevel::restore(EchoCanceller::Frame &output) noexcept {
    for (std::size_t i = 0; i < output.size(); ++i)
        output[i] *= i < aec3Delay ? m_before : m_current;
}

void EchoLevel::follow(std::span<const float> microphone, std::span<const float> linear, bool isPlaying) noexcept {
    m_match.take(microphone, linear);
    m_likeness = m_match.likeness();
    if (m_match.mismatch() != 1) {
        m_next = std::clamp(m_next * m_match.mismatch(), least, most);
        m_match.restart();
    } else if (isPlaying) {
        m_next = m_next > 1 ? std::max(1.0F, m_next / aFrame) : std::min(1.0F, m_next * aFrame);
    }
}

} // namespace palomet::echo
