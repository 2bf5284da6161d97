#include "audio/echo/SpeechMask.h"

#include "audio/echo/Approximations.h"

#include <algorithm>

namespace palomet::echo {
namespace {

// A word that is lost costs more than an echo that is heard softly: the mask opens early, and gains are nearer to 1
// than was learned, by this power of them: chosen on the second hard set between 0.7, which loses twice as much, and
// 0.5, with 2 dB less ERLE.
constexpr float likelyVoice = 0.2F;
constexpr float caution = 0.6F;
constexpr int held = 20;         // Frames: a stop within a word is no end of it.
constexpr float closing = 0.25F; // A frame.

/// Of a positive number.
float powerOf(float base, float exponent) {
    constexpr float ln2 = 0.693147181F;
    return exponential(exponent * ln2 * binaryLogarithm(base));
}

} // namespace

const LowFrame &SpeechMask::process(const MaskSignals &signals, bool hasEcho) noexcept {
    auto [gains, voice] = m_network.process(m_features.process(signals));
    m_heldFrames = voice > likelyVoice ? held : std::max(m_heldFrames - 1, 0);
    m_openness = m_heldFrames > 0 || !hasEcho ? 1 : std::max(m_openness - closing, 0.0F);
    for (float &gain : gains)
        gain = hasEcho ? m_openness * powerOf(gain, caution) : 1;
    m_filter.process(signals.linear, gains, m_masked);
    return m_masked;
}

} // namespace palomet::echo
