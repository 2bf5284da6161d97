#include "audio/echo/EchoMatch.h"

#include <algorithm>
#include <cmath>

namespace palomet::echo {

namespace {

constexpr float smoothing = 0.6F;
constexpr float expectedPower = 1e-6F; // -60 dBFS: loud enough to tell.
constexpr float sure = 0.4F;           // Likeness.
constexpr int onset = 2;               // Frames.
constexpr float leastMismatch = 1.19F; // 1.5 dB.
constexpr float mostMismatch = 10;     // 20 dB.
constexpr int settling = 2;            // Frames that hold some of both.

} // namespace

void EchoMatch::take(std::span<const float> microphone, std::span<const float> linear) noexcept {
    if (m_skipped > 0) {
        --m_skipped;
        return;
    }
    float cross = 0;
    float expected = 0;
    float power = 0;
    for (std::size_t i = 0; i < microphone.size(); ++i) {
        const float echo = microphone[i] - linear[i];
        cross += microphone[i] * echo;
        expected += echo * echo;
        power += microphone[i] * microphone[i];
    }
    const auto approach = [count = static_cast<float>(microphone.size())](float &value, float sum) {
        value += smoothing * (sum / count - value);
    };
    approach(m_cross, cross);
    approach(m_expected, expected);
    approach(m_microphone, power);

    const float left = m_microphone - 2 * m_cross + m_expected;
    const float shared = m_cross - m_expected;
    const bool canTell = m_expected > expectedPower && left > 0;
    const float factor = canTell ? m_cross / m_expected : 1;
    const bool isOff = factor > leastMismatch || (factor > 0 && factor < 1 / leastMismatch);
    m_likeness = isOff ? std::min(1.0F, shared * shared / (m_expected * left)) : 0;
    m_alike = m_likeness > sure ? std::min(m_alike + 1, onset) : 0;
    m_mismatch = m_alike == onset ? std::clamp(factor, 1 / mostMismatch, mostMismatch) : 1;
}

void EchoMatch::restart() noexcept {
    m_cross = m_expected = m_microphone = 0;
    m_likeness = 0;
    m_mismatch = 1;
    m_alike = 0;
    m_skipped = settling;
}

} // namespace palomet::echo
