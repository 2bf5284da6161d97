#include "audio/echo/EchoCanceller.h"
#include "audio/echo/Samples.h"
#include "audio/echo/SharedState.h"

#include <webrtc/common.h>
#include <webrtc/modules/audio_processing/include/audio_processing.h>

// The canceller before AEC3, for systems that have nothing newer: it looks for the delay around the hint.

namespace palomet {
namespace {

using webrtc::AudioProcessing;

/// The library's own buffers add this to the delay.
constexpr int ownDelayMs = 40;
constexpr int maximumDelayMs = 500;
/// Of the echo return loss enhancement, from which on the path counts as found.
constexpr int convergedDb = 6;

class Aec2Canceller final : public EchoCanceller {
public:
    explicit Aec2Canceller(std::unique_ptr<AudioProcessing> processing)
        : m_processing(std::move(processing)) {
        auto *canceller = m_processing->echo_cancellation();
        canceller->enable_drift_compensation(false);
        canceller->set_suppression_level(webrtc::EchoCancellation::kModerateSuppression);
        canceller->enable_metrics(true);
        canceller->Enable(true);
        m_processing->high_pass_filter()->Enable(true);
        // Told the format now, the library allocates nothing when the first frame comes.
        m_processing->Initialize({{m_stream, m_stream, m_stream, m_stream}});
    }

    void render(std::span<const float, frameSize> reference) noexcept override {
        auto frame = echo::clean(reference);
        float *channel = frame.data();
        m_processing->ProcessReverseStream(&channel, m_stream, m_stream, &channel);
    }

    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        auto frame = echo::clean(in);
        m_offset.apply(frame);
        float *channel = frame.data();
        m_processing->set_stream_delay_ms(std::clamp(delayHintMs, 0, maximumDelayMs - ownDelayMs) + ownDelayMs);
        m_processing->ProcessStream(&channel, m_stream, m_stream, &channel);
        std::copy(frame.begin(), frame.end(), out.begin());
        readState();
    }

    void reset() noexcept override {
        m_processing->Initialize();
        m_offset = {};
        m_state.set(false, std::nullopt, std::nullopt);
    }

    [[nodiscard]] EchoCancellerState state() const override { return m_state.read(QStringLiteral("AEC2")); }

private:
    static constexpr int unmeasuredDb = -100;

    /// The delay is not told: what the library measures is what is left of it after its own buffers.
    void readState() noexcept {
        auto *canceller = m_processing->echo_cancellation();
        std::optional<double> enhancement;
        webrtc::EchoCancellation::Metrics metrics{};
        if (canceller->GetMetrics(&metrics) == AudioProcessing::kNoError &&
            metrics.echo_return_loss_enhancement.instant > unmeasuredDb)
            enhancement = metrics.echo_return_loss_enhancement.instant;
        m_state.set(enhancement.value_or(0) > convergedDb, std::nullopt, enhancement);
    }

    std::unique_ptr<AudioProcessing> m_processing;
    webrtc::StreamConfig m_stream{48000, 1};
    echo::OffsetFilter m_offset;
    echo::SharedState m_state;
};

} // namespace

Result<std::unique_ptr<EchoCanceller>> EchoCanceller::create() {
    webrtc::Config config;
    config.Set<webrtc::ExtendedFilter>(new webrtc::ExtendedFilter(true));
    config.Set<webrtc::DelayAgnostic>(new webrtc::DelayAgnostic(true));
    std::unique_ptr<AudioProcessing> processing(AudioProcessing::Create(config));
    if (!processing)
        return Failure{QStringLiteral("AEC2 indisponível")};
    return std::unique_ptr<EchoCanceller>(std::make_unique<Aec2Canceller>(std::move(processing)));
}

} // namespace palomet
