#include "audio/echo/PlainAec3.h"

#include "audio/echo/ProcessingStream.h"
#include "audio/echo/Samples.h"

#include <modules/audio_processing/include/audio_processing.h>

namespace palomet::echo {
namespace {

using webrtc::AudioProcessing;

class PlainAec3 final : public EchoCanceller {
public:
    explicit PlainAec3(rtc::scoped_refptr<AudioProcessing> processing)
        : m_stream(std::move(processing)) {}

    void render(std::span<const float, frameSize> reference) noexcept override { m_stream.render(reference); }

    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        auto frame = m_offset.apply(in);
        m_stream.capture(frame, delayHintMs);
        std::copy(frame.begin(), frame.end(), out.begin());
    }

private:
    ProcessingStream<rtc::scoped_refptr<AudioProcessing>, webrtc::StreamConfig> m_stream;
    OffsetFilter m_offset;
};

} // namespace

Result<std::unique_ptr<EchoCanceller>> createPlainAec3() {
    rtc::scoped_refptr<AudioProcessing> processing(webrtc::AudioProcessingBuilder().Create());
    if (!processing)
        return Failure{QStringLiteral("AEC3 indisponível")};
    AudioProcessing::Config config;
    config.echo_canceller.enabled = true;
    config.high_pass_filter.enabled = true;
    processing->ApplyConfig(config);
    return std::unique_ptr<EchoCanceller>(std::make_unique<PlainAec3>(std::move(processing)));
}

} // namespace palomet::echo
