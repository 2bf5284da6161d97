#pragma once

#include "audio/echo/EchoCanceller.h"
#include "audio/echo/Samples.h"

#include <array>
#include <memory>

namespace palomet::echo {

/// By how many samples at 48 kHz AEC3's output is later than its input, measured with white noise: the bands that it is
/// cut into and put together from, and the block that the suppressor works in.
inline constexpr int aec3Delay = 430;

/// Lets a canceller rest while nothing is played, which is most of the day: silence has no echo, and to look for one
/// costs as much as to cancel it. Two seconds after the last sound, longer than any echo, the canceller is given no
/// more frames, neither reference nor microphone; what it knows of the room stays as it was. The microphone then takes
/// a way of the same delay that is freed of rumble likewise. The first sample that is played wakes the canceller: it
/// has 20 ms to fill its own delays, for an echo comes later than its reference, and takes over within the next frame.
class RestingCanceller final : public EchoCanceller {
public:
    static constexpr int restAfter = 200; ///< Silent frames of the reference.
    static constexpr int wakingTime = 2;  ///< Frames.
    static constexpr int maximumDelay = 2 * frameSize;

    /// `delay`: by how many samples what comes out of the canceller is later than what went in.
    RestingCanceller(std::unique_ptr<EchoCanceller> canceller, int delay);

    void render(std::span<const float, frameSize> reference) noexcept override;
    void turned(float factor) noexcept override { m_canceller->turned(factor); }
    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override;

private:
    /// The microphone's other way: late by `delay`, without an offset and what is below a voice.
    class Bypass {
    public:
        explicit Bypass(int delay)
            : m_delay(static_cast<std::size_t>(delay)) {}
        Frame process(FrameView samples) noexcept;

    private:
        std::size_t m_delay;
        OffsetFilter m_offset;
        float m_first = 0; ///< State of the high pass.
        float m_second = 0;
        std::array<float, maximumDelay + frameSize> m_samples{}; ///< The past, then this frame.
    };

    [[nodiscard]] bool isResting() const { return m_silentFrames > restAfter; }

    std::unique_ptr<EchoCanceller> m_canceller;
    Bypass m_bypass;
    int m_silentFrames = 0;  ///< Of the reference, in a row.
    int m_wakingFrames = 0;  ///< For which the canceller is not listened to yet.
    float m_bypassShare = 0; ///< At the end of the last frame.
};

} // namespace palomet::echo
