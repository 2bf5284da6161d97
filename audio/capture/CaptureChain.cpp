#include "audio/capture/CaptureChain.h"

#include "audio/SoundServer.h"
#include "audio/echo/EchoReference.h"

#include <algorithm>
#include <cmath>

namespace palomet {

CaptureChain::CaptureChain(std::unique_ptr<EchoCanceller> canceller, std::function<void(PcmSamples)> onPcm)
    : m_canceller(std::move(canceller))
    , m_onPcm(std::move(onPcm))
    , m_resampler(SoundStreams::sampleRate, outputRate)
    , m_output(m_resampler.capacity(tapSize)) {}

void CaptureChain::captured(std::span<const float> samples, std::chrono::microseconds delay,
                            EchoReference &reference) noexcept {
    if (m_isFresh) {
        // Samples that were played while nobody listened are no reference for what is heard from here on.
        reference.clear();
        m_isFresh = false;
    }
    const auto unmatched = m_waitingCount * EchoCanceller::frameSize + m_fill;
    const auto lead = reference.follow(samples.size(), unmatched, delay);
    const auto hint = std::chrono::duration_cast<std::chrono::milliseconds>(lead).count();
    const int delayHintMs = static_cast<int>(std::clamp<std::int64_t>(hint, 0, 500));

    while (!samples.empty()) {
        auto &frame = m_frames[(m_firstWaiting + m_waitingCount) % m_frames.size()];
        const auto count = std::min(samples.size(), frame.size() - m_fill);
        // One sample that is no number would stay in the canceller's filters for good.
        std::transform(samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(count),
                       frame.begin() + static_cast<std::ptrdiff_t>(m_fill),
                       [](float sample) { return std::isfinite(sample) ? sample : 0.0F; });
        samples = samples.subspan(count);
        m_fill += count;
        if (m_fill < frame.size())
            return;
        m_fill = 0;
        ++m_waitingCount;
        while (m_waitingCount > 0 && (m_waitingCount > mostWaiting || reference.isReady())) {
            cancelEcho(m_frames[m_firstWaiting], delayHintMs, reference);
            m_firstWaiting = (m_firstWaiting + 1) % m_frames.size();
            --m_waitingCount;
        }
    }
}

void CaptureChain::cancelEcho(EchoCanceller::Frame &frame, int delayHintMs, EchoReference &reference) noexcept {
    EchoCanceller::Frame played;
    reference.read(played);
    m_canceller->render(played);
    m_canceller->capture(frame, delayHintMs, frame);
    appendToTap(frame);
}

void CaptureChain::appendToTap(std::span<const float> samples) noexcept {
    while (!samples.empty()) {
        const auto count = std::min(samples.size(), m_tap.size() - m_tapFill);
        std::copy_n(samples.begin(), count, m_tap.begin() + static_cast<std::ptrdiff_t>(m_tapFill));
        samples = samples.subspan(count);
        m_tapFill += count;
        if (m_tapFill == m_tap.size()) {
            const auto written = m_resampler.process(m_tap, m_output);
            m_tapFill = 0;
            if (written > 0)
                m_onPcm(PcmSamples(m_output).first(written));
        }
    }
}

} // namespace palomet
