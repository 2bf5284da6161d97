#include "audio/echo/TunedAec3.h"

#include "audio/echo/ProcessingStream.h"

#include <api/audio/echo_canceller3_factory.h>
#include <modules/audio_processing/audio_buffer.h>
#include <modules/audio_processing/high_pass_filter.h>
#include <modules/audio_processing/include/audio_processing.h>
#include <rtc_base/logging.h>

#include <algorithm>
#include <cassert>

namespace palomet::echo {

using namespace Qt::StringLiterals;

namespace {

using webrtc::AudioProcessing;
using webrtc::EchoCanceller3Config;

constexpr int fullRate = 48000;
constexpr float fullScale = 32768;

EchoCanceller3Config tunedConfig() {
    EchoCanceller3Config config;
    auto &filter = config.filter;
    filter.refined.length_blocks = 40;
    filter.coarse.length_blocks = 13;
    filter.refined_initial.length_blocks = 12;
    filter.coarse_initial.length_blocks = 12;
    filter.refined.leakage_converged = 0.000139F;
    filter.refined.leakage_diverged = 0.03015F;
    filter.refined.error_floor = 0.01F;
    filter.coarse.rate = 0.7023F;
    filter.export_linear_aec_output = true;

    config.erle.max_l = 65.16F;
    config.erle.max_h = 7.087F;
    config.ep_strength.default_len = 0.86F;
    config.ep_strength.nearend_len = 0.3473F;
    config.ep_strength.use_conservative_tail_frequency_response = false;

    using Masks = EchoCanceller3Config::Suppressor::MaskingThresholds;
    auto &suppressor = config.suppressor;
    suppressor.normal_tuning = {Masks(0.15F, 0.165F, 1.434F), Masks(0.05686F, 0.1041F, 1.434F), 3, 0.4015F};
    suppressor.nearend_tuning = {Masks(0.5463F, 0.5517F, 0.7263F), Masks(0.1F, 0.2971F, 0.7263F), 8, 0.3577F};
    suppressor.nearend_average_blocks = 3;
    auto &nearEnd = suppressor.dominant_nearend_detection;
    nearEnd.enr_threshold = 0.2101F;
    nearEnd.enr_exit_threshold = 7.72F;
    nearEnd.snr_threshold = 25.75F;
    nearEnd.trigger_threshold = 10;
    nearEnd.hold_duration = 60;
    return config;
}

AudioProcessing::Config processingConfig() {
    AudioProcessing::Config config;
    config.echo_canceller.enabled = true;
    config.echo_canceller.export_linear_aec_output = true;
    config.high_pass_filter.enabled = true;
    return config;
}

class LibraryAec3 final : public TunedAec3 {
public:
    explicit LibraryAec3(rtc::scoped_refptr<AudioProcessing> processing)
        : m_stream(std::move(processing)) {}

    void render(FrameView reference) noexcept override { m_stream.render(reference); }

    void capture(FrameView microphone, int delayHintMs, Outputs &outputs) noexcept override {
        std::copy(microphone.begin(), microphone.end(), outputs.suppressed.begin());
        m_stream.capture(outputs.suppressed, delayHintMs);
        std::array<LowFrame, 1> linear{};
        m_stream.processing().GetLinearAecOutput(linear);
        outputs.linear = linear.front();
    }

private:
    ProcessingStream<rtc::scoped_refptr<AudioProcessing>, webrtc::StreamConfig> m_stream;
};

} // namespace

struct TunedAec3::LowBand::Parts {
    webrtc::AudioBuffer buffer{fullRate, 1, fullRate, 1, fullRate, 1};
    webrtc::HighPassFilter highPass{fullRate, 1};
    webrtc::StreamConfig format{fullRate, 1};
    std::size_t delay = 0;
    std::array<float, linearDelay + lowFrameSize> samples{}; ///< The past, then this frame.
};

TunedAec3::LowBand::LowBand(int delay)
    : m_parts(std::make_unique<Parts>()) {
    assert(delay >= 0 && delay <= linearDelay);
    m_parts->delay = static_cast<std::size_t>(delay);
}

TunedAec3::LowBand::~LowBand() = default;

LowFrame TunedAec3::LowBand::process(FrameView samples) noexcept {
    auto &[buffer, highPass, format, delay, band] = *m_parts;
    const float *channel = samples.data();
    buffer.CopyFrom(&channel, format);
    highPass.Process(&buffer, false);
    buffer.SplitIntoFrequencyBands();
    std::copy(band.end() - linearDelay, band.end(), band.begin());
    std::transform(buffer.split_bands_const(0)[0], buffer.split_bands_const(0)[0] + lowFrameSize,
                   band.begin() + linearDelay, [](float sample) { return sample / fullScale; });
    LowFrame frame;
    std::copy_n(band.end() - static_cast<std::ptrdiff_t>(lowFrameSize + delay), lowFrameSize, frame.begin());
    return frame;
}

Result<std::unique_ptr<TunedAec3>> TunedAec3::create() {
    // The library writes to standard error unless it is told not to.
    rtc::LogMessage::LogToDebug(rtc::LS_NONE);
    rtc::LogMessage::SetLogToStderr(false);

    auto processing = webrtc::AudioProcessingBuilder()
                          .SetConfig(processingConfig())
                          .SetEchoControlFactory(std::make_unique<webrtc::EchoCanceller3Factory>(tunedConfig()))
                          .Create();
    if (!processing)
        return Failure{u"AEC3 indisponível"_s};
    return std::unique_ptr<TunedAec3>(std::make_unique<LibraryAec3>(std::move(processing)));
}

} // namespace palomet::echo
