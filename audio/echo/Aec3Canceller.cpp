#include "audio/echo/EchoCanceller.h"
#include "audio/echo/EchoMatch.h"
#include "audio/echo/LinearOutputGate.h"
#include "audio/echo/LowBand.h"
#include "audio/echo/ProcessingStream.h"
#include "audio/echo/RestingCanceller.h"
#include "audio/echo/Samples.h"
#include "audio/echo/TripleRate.h"

#include <api/audio/echo_canceller3_factory.h>
#include <modules/audio_processing/include/audio_processing.h>
#include <rtc_base/logging.h>

#include <algorithm>

// AEC3 with its linear output beside the suppressed one, from the library that gives access to both its settings.

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

using webrtc::AudioProcessing;
using webrtc::EchoCanceller3Config;

/// How many samples at 16 kHz the linear output leads the suppressed one: the block that the suppressor works in, and
/// the bands that are put together again behind it.
constexpr int linearLead = 72;

EchoCanceller3Config tunedConfig() {
    EchoCanceller3Config config;
    auto &filter = config.filter;
    filter.refined.length_blocks = 27;
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

class Aec3Canceller final : public EchoCanceller {
public:
    explicit Aec3Canceller(rtc::scoped_refptr<AudioProcessing> processing)
        : m_stream(std::move(processing)) {}

    void render(std::span<const float, frameSize> reference) noexcept override {
        m_referencePower = echo::meanSquare(reference);
        m_stream.render(reference);
    }

    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        auto frame = m_offset.apply(in);
        const float level = m_level;
        for (float &sample : frame)
            sample /= level;
        const float microphonePower = echo::meanSquare(frame);
        const auto microphone = m_lowBand.process(frame);
        m_stream.capture(frame, delayHintMs);

        std::array<std::array<float, TripleRate::inputSize>, 1> linearAt16kHz{};
        m_stream.processing().GetLinearAecOutput(linearAt16kHz);
        m_tripleRate.push(linearAt16kHz.front());

        m_match.take(microphone, linearAt16kHz.front());
        const bool isLinearBetter =
            m_gate.isLinearBetter({m_referencePower, microphonePower, echo::meanSquare(m_tripleRate.delayed()),
                                   echo::meanSquare(frame), m_match.likeness()});
        const float from = m_linearShare;
        m_linearShare = isLinearBetter ? 1 : 0;
        if (from > 0 || isLinearBetter) {
            Frame linear;
            m_tripleRate.read(linear);
            echo::crossFade(frame, linear, from, m_linearShare);
        }
        restoreLevel(frame, level);
        follow();
        std::copy(frame.begin(), frame.end(), out.begin());
    }

private:
    using TripleRate = echo::TripleRate;

    /// Makes the frame as loud as the microphone was, and turns down what is echo.
    void restoreLevel(Frame &frame, float level) noexcept {
        const float from = m_share;
        m_share = m_gate.isEcho() ? echoShare : 1;
        for (std::size_t i = 0; i < frame.size(); ++i) {
            const float share = from + (m_share - from) * static_cast<float>(i + 1) / frameSize;
            frame[i] *= share * (i < echo::aec3Delay ? m_levelBefore : level);
        }
        m_levelBefore = level;
    }

    /// Speakers or a microphone that were turned up or down change nothing but the level of the echo. The filter would
    /// need seconds to learn that; so it is given the microphone at the level that it knows, and what comes of that is
    /// turned back. The level then returns by little and little, and the filter follows.
    void follow() noexcept {
        if (m_match.mismatch() != 1) {
            m_level = std::clamp(m_level * m_match.mismatch(), leastLevel, mostLevel);
            m_match.restart();
        } else if (m_referencePower > audible) {
            m_level = m_level > 1 ? std::max(1.0F, m_level / levelReturn) : std::min(1.0F, m_level * levelReturn);
        }
    }

    static constexpr float echoShare = 0.1F;   // -20 dB.
    static constexpr float leastLevel = 0.25F; // Or what is loud would be beyond full scale.
    static constexpr float mostLevel = 10;
    static constexpr float levelReturn = 1.00115F; // 1 dB a second.
    static constexpr float audible = 1e-5F;        // -50 dBFS.

    echo::ProcessingStream<rtc::scoped_refptr<AudioProcessing>, webrtc::StreamConfig> m_stream;
    echo::OffsetFilter m_offset;
    TripleRate m_tripleRate{linearLead - TripleRate::filterDelay};
    echo::LinearOutputGate m_gate;
    echo::LowBand m_lowBand;
    echo::EchoMatch m_match;
    float m_level = 1;       ///< How much louder the echo is than the filter learned it.
    float m_levelBefore = 1; ///< The same, of the last frame.
    float m_share = 1;       ///< Of the output that was given at the end of the last frame.
    float m_referencePower = 0;
    float m_linearShare = 0; ///< Of the linear output at the end of the last frame.
};

} // namespace

Result<std::unique_ptr<EchoCanceller>> EchoCanceller::create() {
    // The library writes to standard error unless it is told not to.
    rtc::LogMessage::LogToDebug(rtc::LS_NONE);
    rtc::LogMessage::SetLogToStderr(false);

    auto processing = webrtc::AudioProcessingBuilder()
                          .SetConfig(processingConfig())
                          .SetEchoControlFactory(std::make_unique<webrtc::EchoCanceller3Factory>(tunedConfig()))
                          .Create();
    if (!processing)
        return Failure{u"AEC3 indisponível"_s};
    auto canceller = std::make_unique<Aec3Canceller>(std::move(processing));
    return std::unique_ptr<EchoCanceller>(
        std::make_unique<echo::RestingCanceller>(std::move(canceller), echo::aec3Delay));
}

QString EchoCanceller::library() {
    return u"AEC3, tuned, with its linear output"_s;
}

} // namespace palomet
