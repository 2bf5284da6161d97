#include "audio/echo/SpeechMask.h"

#include <algorithm>

namespace palomet::echo {
namespace {

constexpr float likelyVoice = 0.4F;
constexpr int held = 20;         // Frames: a stop within a word is no end of it.
constexpr float closing = 0.25F; // A frame.

} // namespace

const LowFrame &SpeechMask::process(const MaskSignals &signals) noexcept {
    auto [gains, voice] = m_network.process(m_features.process(signals));
    m_heldFrames = voice > likelyVoice ? held : std::max(m_heldFrames - 1, 0);
    m_openness = m_heldFrames > 0 ? 1 : std::max(m_openness - closing, 0.0F);
    for (float &gain : gains)
        gain *= m_openness;
    m_filter.process(signals.linear, gains, m_masked);
    return m_masked;
}

} // namespace palomet::echo
