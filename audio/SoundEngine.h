#pragma once

#include "audio/SoundServer.h"
#include "audio/capture/CaptureChain.h"
#include "audio/echo/EchoReference.h"
#include "audio/speech/SpeechMixer.h"

#include <memory>

namespace palomet {

/// The real-time half of sound: what the speakers are given is, sample for sample, what the microphone is freed of.
/// Outlives both streams; the sound server's thread calls `SoundStreams`, everybody else only what is declared here.
class SoundEngine final : public SoundStreams {
public:
    /// The configuration that the microphone's samples go through, or none. Main thread, while the microphone is
    /// closed.
    void setCapture(std::unique_ptr<CaptureChain> capture) { m_capture = std::move(capture); }

    [[nodiscard]] SpeechMixer &mixer() { return m_mixer; }

    void captured(std::span<const float> samples, std::chrono::microseconds delay) noexcept override;
    void fill(std::span<float> samples) noexcept override;
    void heard(std::int64_t frames) noexcept override;
    void turned(float factor) noexcept override;
    void playbackOpened() noexcept override;

private:
    std::unique_ptr<CaptureChain> m_capture;
    SpeechMixer m_mixer;
    EchoReference m_reference;
};

} // namespace palomet
