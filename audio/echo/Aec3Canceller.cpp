#include "audio/echo/EchoCanceller.h"
#include "audio/echo/LinearOutputGate.h"
#include "audio/echo/RestingCanceller.h"
#include "audio/echo/Samples.h"
#include "audio/echo/SharedState.h"
#include "audio/echo/TripleRate.h"

#include <api/audio/echo_canceller3_factory.h>
#include <modules/audio_processing/include/audio_processing.h>
#include <rtc_base/logging.h>

// AEC3 with its linear output beside the suppressed one, from the library that gives access to both its settings.

namespace palomet {
namespace {

using webrtc::AudioProcessing;
using webrtc::EchoCanceller3Config;

/// How many samples at 16 kHz the linear output leads the suppressed one: the block that the suppressor works in, and
/// the bands that are put together again behind it.
constexpr int linearLead = 72;

/// The linear filter leaves this of the microphone's power once it has found the path, clocks that drift apart
/// included.
constexpr float convergedResidual = 0.5F;

EchoCanceller3Config tunedConfig() {
    EchoCanceller3Config config;
    auto &filter = config.filter;
    filter.refined.length_blocks = 27;
    filter.coarse.length_blocks = 27;
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
        : m_processing(std::move(processing)) {
        // Told the format now, the library allocates nothing when the first frame comes.
        m_processing->Initialize({{m_stream, m_stream, m_stream, m_stream}});
    }

    void render(std::span<const float, frameSize> reference) noexcept override {
        auto frame = echo::clean(reference);
        m_referencePower = echo::meanSquare(frame);
        float *channel = frame.data();
        m_processing->ProcessReverseStream(&channel, m_stream, m_stream, &channel);
    }

    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        auto frame = echo::clean(in);
        m_offset.apply(frame);
        const float microphonePower = echo::meanSquare(frame);
        float *channel = frame.data();
        m_processing->set_stream_delay_ms(delayHintMs);
        m_processing->ProcessStream(&channel, m_stream, m_stream, &channel);

        std::array<std::array<float, TripleRate::inputSize>, 1> linearAt16kHz{};
        m_processing->GetLinearAecOutput(linearAt16kHz);
        m_tripleRate.push(linearAt16kHz.front());

        const bool isLinearBetter = m_gate.isLinearBetter(
            {m_referencePower, microphonePower, echo::meanSquare(m_tripleRate.delayed()), echo::meanSquare(frame)});
        const float from = m_linearShare;
        m_linearShare = isLinearBetter ? 1 : 0;
        if (from > 0 || isLinearBetter) {
            Frame linear;
            m_tripleRate.read(linear);
            echo::crossFade(frame, linear, from, m_linearShare);
        }
        std::copy(frame.begin(), frame.end(), out.begin());
        // Asked here every time: the library keeps the oldest answer that nobody has fetched.
        const auto statistics = m_processing->GetStatistics();
        m_state.set(m_gate.residual() < convergedResidual, echo::toStandard(statistics.delay_ms),
                    echo::toStandard(statistics.echo_return_loss_enhancement));
    }

    void reset() noexcept override {
        m_processing->Initialize();
        m_offset = {};
        m_tripleRate = TripleRate(linearLead - TripleRate::filterDelay);
        m_gate = {};
        m_referencePower = 0;
        m_linearShare = 0;
        m_state.set(false, std::nullopt, std::nullopt);
    }

    [[nodiscard]] EchoCancellerState state() const override {
        return m_state.read(QStringLiteral("AEC3, tuned, with its linear output"));
    }

private:
    using TripleRate = echo::TripleRate;

    rtc::scoped_refptr<AudioProcessing> m_processing;
    webrtc::StreamConfig m_stream{48000, 1};
    echo::OffsetFilter m_offset;
    TripleRate m_tripleRate{linearLead - TripleRate::filterDelay};
    echo::LinearOutputGate m_gate;
    float m_referencePower = 0;
    float m_linearShare = 0; ///< Of the linear output at the end of the last frame.
    echo::SharedState m_state;
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
        return Failure{QStringLiteral("AEC3 indisponível")};
    auto canceller = std::make_unique<Aec3Canceller>(std::move(processing));
    return std::unique_ptr<EchoCanceller>(
        std::make_unique<echo::RestingCanceller>(std::move(canceller), echo::aec3Delay));
}

} // namespace palomet
