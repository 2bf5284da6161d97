#include "audio/echo/EchoLevel.h"

#include "audio/echo/RestingCanceller.h"

#include <algorithm>
#include <utility>

namespace palomet::echo {

namespace {

constexpr float least = 0.25F; // Or what is loud would be beyond full scale.
constexpr float most = 10;
constexpr float aFrame = 1.00115F; // 1 dB a second.
// What is told reaches the microphone within so many frames of sound, and all of the room has it after so many.
constexpr int onItsWay = 12;
constexpr int settlingTold = 40;
// An echo that is at once so much softer has broken off, and disturbs the filter for so many frames when it is back.
constexpr float brokenOff = 0.5F;
constexpr int settlingBack = 15;
constexpr float leastTold = 1.19F; // 1.5 dB.

} // namespace

void EchoLevel::turned(float factor) noexcept {
    m_told = std::clamp(m_told * factor / std::exchange(m_seen, 1.0F), 1 / most, most);
    m_heardFrames = 0;
    if (m_told > leastTold || m_told < 1 / leastTold)
        m_unsettledFrames = settlingTold;
}

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
    m_heardFrames += isPlaying ? 1 : 0;
    m_unsettledFrames = std::max(m_unsettledFrames - (isPlaying ? 1 : 0), 0);
    if (m_heardFrames > settlingTold)
        m_seen = 1;
    const float change = takeChange();
    if (change != 1) {
        m_next = std::clamp(m_next * change, least, most);
        m_match.restart();
    } else if (isPlaying) {
        m_next = m_next > 1 ? std::max(1.0F, m_next / aFrame) : std::min(1.0F, m_next * aFrame);
    }
}

float EchoLevel::takeChange() noexcept {
    const float seen = m_match.mismatch();
    if (m_told != 1 && (seen == 1 ? m_heardFrames >= onItsWay : (seen > 1) == (m_told > 1)))
        return std::exchange(m_told, 1.0F);
    if (seen != 1) {
        m_seen *= seen;
        m_heardFrames = 0;
        m_unsettledFrames = std::max(m_unsettledFrames, seen < brokenOff ? settlingBack : 0);
    }
    return seen;
}

} // namespace palomet::echo
