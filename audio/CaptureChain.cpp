#include "audio/CaptureChain.h"

#include "audio/EchoReference.h"
#include "audio/SoundServer.h"

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
        // What was played while nobody listened is no reference for what is heard from here on.
        reference.clear();
        m_isFresh = false;
    }
    // The next frame began before these samples did, by what is left of the last ones; its reference was handed to the
    // speakers before now, by what lies in the backlog.
    using Samples = std::chrono::duration<std::int64_t, std::ratio<1, SoundStreams::sampleRate>>;
    const auto shift = Samples(static_cast<std::int64_t>(m_frameFill) - reference.backlog());
    const auto hint = std::chrono::duration_cast<std::chrono::milliseconds>(delay + shift).count();
    const int delayHintMs = static_cast<int>(std::clamp<std::int64_t>(hint, 0, 500));

    int frames = 0;
    while (!samples.empty()) {
        const auto count = std::min(samples.size(), m_frame.size() - m_frameFill);
        // One sample that is no number would stay in the canceller's filters for good.
        std::transform(samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(count),
                       m_frame.begin() + static_cast<std::ptrdiff_t>(m_frameFill),
                       [](float sample) { return std::isfinite(sample) ? sample : 0.0F; });
        samples = samples.subspan(count);
        m_frameFill += count;
        if (m_frameFill == m_frame.size()) {
            cancelEcho(delayHintMs, reference);
            m_frameFill = 0;
            ++frames;
        }
    }
    reference.settle(frames, delayHintMs);
}

void CaptureChain::cancelEcho(int delayHintMs, EchoReference &reference) noexcept {
    EchoCanceller::Frame played;
    reference.read(played);
    m_canceller->render(played);
    m_canceller->capture(m_frame, delayHintMs, m_frame);
    appendToTap(m_frame);
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
