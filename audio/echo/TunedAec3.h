#pragma once

#include "audio/echo/EchoCanceller.h"
#include "audio/echo/MaskSignals.h"
#include "audio/echo/Samples.h"

#include <memory>

namespace palomet::echo {

/// AEC3 with settings of ours, and with what it knows between its stages: what its linear filter leaves beside what its
/// suppressor makes of that. Only where the library that gives access to both is built in. Not thread-safe; no call
/// after creation allocates memory of ours, locks or logs.
class TunedAec3 {
public:
    /// By how many samples at 16 kHz `linear` leads `suppressed`: the block that the suppressor works in, and the bands
    /// that are put together again behind it.
    static constexpr int linearLead = 72;

    struct Outputs {
        EchoCanceller::Frame suppressed; ///< 48 kHz.
        LowFrame linear;
    };

    /// By how many samples the linear output is later than its band of the microphone.
    static constexpr int linearDelay = 64;

    /// The lowest of the bands that the library cuts a signal into, without what lies below a voice. While nothing is
    /// played, the microphone's, `linearDelay` later, is the linear output to the bit.
    class LowBand {
    public:
        /// `delay`: by how many samples at 16 kHz it is later than the band itself.
        explicit LowBand(int delay);
        ~LowBand();
        LowFrame process(FrameView samples) noexcept;

    private:
        struct Parts;
        std::unique_ptr<Parts> m_parts;
    };

    static Result<std::unique_ptr<TunedAec3>> create();

    virtual ~TunedAec3() = default;
    virtual void render(FrameView reference) noexcept = 0;
    virtual void capture(FrameView microphone, int delayHintMs, Outputs &outputs) noexcept = 0;
};

} // namespace palomet::echo
