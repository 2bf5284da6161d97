#include "audio/echo/LinearOutputGate.h"

#include <algorithm>

namespace palomet::echo {
namespace {

constexpr float smoothing = 0.4F;
constexpr float referenceDecay = 0.9F;
constexpr float nearEndShare = 0.35F;    // Of the linear output, that the suppressor lets through.
constexpr float nearEndPower = 1e-7F;    // -70 dBFS.
constexpr int nearEndOnset = 3;          // Frames.
constexpr int nearEndHold = 15;          // Frames.
constexpr float referencePower = 1e-5F;  // -50 dBFS: loud enough to judge the filter by.
constexpr float microphonePower = 1e-6F; // -60 dBFS: likewise.
constexpr float residualSmoothing = 0.02F;
constexpr float begunResidual = 0.5F; // -3 dB.
constexpr float echoLikeness = 0.5F;

void approach(float &value, float target, float share) {
    value += share * (target - value);
}

} // namespace

void LinearOutputGate::take(const Powers &powers) noexcept {
    approach(m_smoothed.microphone, powers.microphone, smoothing);
    approach(m_smoothed.linear, powers.linear, smoothing);
    approach(m_smoothed.suppressed, powers.suppressed, smoothing);
    m_reference = std::max(powers.reference, referenceDecay * m_reference);

    const bool isFarEnd = m_reference > referencePower;
    const bool isNearEnd = powers.likeness < echoLikeness && m_smoothed.suppressed > nearEndShare * m_smoothed.linear &&
                           m_smoothed.linear > nearEndPower;
    m_nearEndFrames = isNearEnd ? std::min(m_nearEndFrames + 1, nearEndOnset) : 0;
    m_heldFrames = m_nearEndFrames == nearEndOnset ? nearEndHold : std::max(m_heldFrames - 1, 0);

    if (isFarEnd && m_heldFrames == 0 && m_nearEndFrames == 0 && m_smoothed.microphone > microphonePower)
        approach(m_residual, std::min(m_smoothed.linear / m_smoothed.microphone, 1.0F), residualSmoothing);

    m_beginningFrames = std::max(m_beginningFrames - (isFarEnd ? 1 : 0), 0);
    const bool isBeginning = m_beginningFrames > 0 && m_residual > begunResidual;
    m_isEcho = isFarEnd && (isBeginning || powers.likeness >= echoLikeness);
}

} // namespace palomet::echo
