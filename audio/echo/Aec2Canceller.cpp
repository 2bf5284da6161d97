#include "audio/echo/EchoCanceller.h"
#include "audio/echo/ProcessingStream.h"
#include "audio/echo/Samples.h"

#include <webrtc/common.h>
#include <webrtc/modules/audio_processing/include/audio_processing.h>

// The canceller before AEC3, for systems that have nothing newer: it looks for the delay around the hint.

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

using webrtc::AudioProcessing;

/// The library's own buffers add this to the delay.
constexpr int ownDelayMs = 40;
constexpr int maximumDelayMs = 500;
class Aec2Canceller final : public EchoCanceller {
public:
    explicit Aec2Canceller(std::unique_ptr<AudioProcessing> processing)
        : m_stream(std::move(processing)) {}

    void render(std::span<const float, frameSize> reference) noexcept override { m_stream.render(reference); }

    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        auto frame = m_offset.apply(in);
        m_stream.capture(frame, std::clamp(delayHintMs, 0, maximumDelayMs - ownDelayMs) + ownDelayMs);
        std::copy(frame.begin(), frame.end(), out.begin());
    }

private:
    echo::ProcessingStream<std::unique_ptr<AudioProcessing>, webrtc::StreamConfig> m_stream;
    echo::OffsetFilter m_offset;
};

} // namespace

Result<std::unique_ptr<EchoCanceller>> EchoCanceller::create(Mask) {
    webrtc::Config config;
    config.Set<webrtc::ExtendedFilter>(new webrtc::ExtendedFilter(true));
    config.Set<webrtc::DelayAgnostic>(new webrtc::DelayAgnostic(true));
    std::unique_ptr<AudioProcessing> processing(AudioProcessing::Create(config));
    if (!processing)
        return Failure{u"AEC2 indisponível"_s};
    auto *canceller = processing->echo_cancellation();
    canceller->enable_drift_compensation(false);
    canceller->set_suppression_level(webrtc::EchoCancellation::kModerateSuppression);
    canceller->Enable(true);
    processing->high_pass_filter()->Enable(true);
    return std::unique_ptr<EchoCanceller>(std::make_unique<Aec2Canceller>(std::move(processing)));
}

bool EchoCanceller::takesMask() {
    return false;
}

QString EchoCanceller::library() {
    return u"AEC2"_s;
}

} // namespace palomet
