#include "audio/echo/RestingCanceller.h"

#include <algorithm>
#include <cassert>

namespace palomet::echo {
namespace {

/// A Butterworth high pass of the second order (R. Bristow-Johnson, Cookbook formulae for audio equalizer biquad filter
/// coefficients) at 110 Hz and 48 kHz, as the libraries' own is within a decibel: cos and sin of 2 pi 110 / 48000.
constexpr double cosine = 0.99989633;
constexpr double alpha = 0.01439863 / 1.41421356;
constexpr auto edge = static_cast<float>((1 + cosine) / 2 / (1 + alpha));
constexpr auto feedbackOne = static_cast<float>(-2 * cosine / (1 + alpha));
constexpr auto feedbackTwo = static_cast<float>((1 - alpha) / (1 + alpha));

} // namespace

EchoCanceller::Frame RestingCanceller::Bypass::process(FrameView samples) noexcept {
    auto frame = m_offset.apply(samples);
    std::copy(m_samples.begin() + frameSize, m_samples.end(), m_samples.begin());
    std::transform(frame.begin(), frame.end(), m_samples.begin() + maximumDelay, [this](float sample) {
        const float passed = edge * sample + m_first;
        m_first = -2 * edge * sample - feedbackOne * passed + m_second;
        m_second = edge * sample - feedbackTwo * passed;
        return passed;
    });
    std::copy_n(m_samples.begin() + static_cast<std::ptrdiff_t>(maximumDelay - m_delay), frameSize, frame.begin());
    return frame;
}

RestingCanceller::RestingCanceller(std::unique_ptr<EchoCanceller> canceller, int delay)
    : m_canceller(std::move(canceller))
    , m_bypass(delay) {
    assert(delay >= 0 && delay <= maximumDelay);
}

void RestingCanceller::render(std::span<const float, frameSize> reference) noexcept {
    const bool isSilent = std::all_of(reference.begin(), reference.end(), [](float sample) { return sample == 0; });
    if (!isSilent && isResting())
        m_wakingFrames = wakingTime;
    m_silentFrames = isSilent ? std::min(m_silentFrames + 1, restAfter + 1) : 0;
    if (!isResting())
        m_canceller->render(reference);
}

void RestingCanceller::capture(std::span<const float, frameSize> in, int delayHintMs,
                               std::span<float, frameSize> out) noexcept {
    const Frame direct = m_bypass.process(in);
    if (isResting()) {
        std::copy(direct.begin(), direct.end(), out.begin());
        return;
    }
    Frame frame;
    m_canceller->capture(in, delayHintMs, frame);
    // The last frame before the rest leads over to it.
    const bool isBypassed = m_wakingFrames > 0 || m_silentFrames == restAfter;
    m_wakingFrames = std::max(m_wakingFrames - 1, 0);
    const float from = m_bypassShare;
    m_bypassShare = isBypassed ? 1 : 0;
    if (from > 0 || isBypassed)
        crossFade(frame, direct, from, m_bypassShare);
    std::copy(frame.begin(), frame.end(), out.begin());
}

} // namespace palomet::echo
