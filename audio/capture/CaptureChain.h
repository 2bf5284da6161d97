#pragma once

#include "audio/capture/Resampler.h"
#include "audio/echo/EchoCanceller.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace palomet {

class EchoReference;

/// One chunk of the microphone as the backend gets it: 16 kHz mono.
using PcmSamples = std::span<const std::int16_t>;

/// The way of the microphone's samples from the sound server to the backend, for one configuration: they are
/// cut into frames of 10 ms, the program's own speech is taken out of them, and every 1024 samples one chunk of 16 kHz
/// samples goes to `onPcm`. A frame whose reference is late waits for it, with those behind it, for up to 100 ms. Made
/// on the main thread, then used on the real-time thread only.
///
/// Samples are cleaned here and nowhere else, those of the microphone and those of the reference, with which both meet
/// the canceller: what is not a number is silence, what is beyond full scale is cut.
class CaptureChain {
public:
    static constexpr int tapSize = 1024;
    static constexpr double outputRate = 16000;
    static constexpr std::size_t mostWaiting = 10; ///< Frames.

    /// `onPcm` is called on the real-time thread and keeps its rules: no lock, no allocation, no waiting.
    CaptureChain(std::unique_ptr<EchoCanceller> canceller, std::function<void(PcmSamples)> onPcm);

    /// The server delivered `samples`; `delay` as `SoundStreams::captured` has it.
    void captured(std::span<const float> samples, std::chrono::microseconds delay, EchoReference &reference) noexcept;

    /// As `SoundStreams::turned` has it.
    void turned(float factor) noexcept { m_canceller->turned(factor); }

private:
    void cancelEcho(EchoCanceller::Frame &frame, int delayHintMs, EchoReference &reference) noexcept;
    void appendToTap(std::span<const float> samples) noexcept;

    std::unique_ptr<EchoCanceller> m_canceller;
    std::function<void(PcmSamples)> m_onPcm;
    Resampler m_resampler;

    bool m_isFresh = true;
    /// Those that wait, in a ring, and behind them the one that is being filled.
    std::array<EchoCanceller::Frame, mostWaiting + 1> m_frames{};
    std::size_t m_firstWaiting = 0;
    std::size_t m_waitingCount = 0;
    std::size_t m_fill = 0;
    std::array<float, tapSize> m_tap{};
    std::size_t m_tapFill = 0;
    std::vector<std::int16_t> m_output;
};

} // namespace palomet
