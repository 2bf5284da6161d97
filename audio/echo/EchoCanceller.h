#pragma once

#include "base/Result.h"

#include <array>
#include <memory>
#include <span>

namespace palomet {

namespace echo {
struct MaskWeights;
}

/// Takes the program's own speech out of what the microphone hears: 48 kHz mono in frames of 10 ms. Not thread-safe:
/// one thread calls `render` and `capture`. No call after creation allocates memory of ours, locks or logs. The same
/// input gives the same output, always. It never forgets the room: another device or server gets a new canceller.
///
/// Every sample given is finite and within full scale, -1 to 1: one that is not a number would stay in the filters for
/// good. `CaptureChain` sees to that. Every sample that comes out is finite, then.
class EchoCanceller {
public:
    static constexpr int frameSize = 480;
    using Frame = std::array<float, frameSize>;

    /// What a learned mask knows; null: there is none.
    using Mask = std::shared_ptr<const echo::MaskWeights>;

    /// Made by the library that was chosen at build time. One that has a linear output takes what is left of the echo
    /// by `mask`, where there is one.
    static Result<std::unique_ptr<EchoCanceller>> create(Mask mask = {});

    /// Whether that library has a use for a mask.
    [[nodiscard]] static bool takesMask();

    /// Which library that is, in words.
    [[nodiscard]] static QString library();

    EchoCanceller() = default;
    EchoCanceller(const EchoCanceller &) = delete;
    EchoCanceller &operator=(const EchoCanceller &) = delete;
    virtual ~EchoCanceller() = default;

    /// The next 10 ms that were handed to the speakers. Exactly once for every `capture`, before it, zeros included: a
    /// skipped silent frame costs 20 to 30 dB.
    virtual void render(std::span<const float, frameSize> reference) noexcept = 0;

    /// By what the sound server tells, the speakers or the microphone were turned: the echo is from about now on
    /// `factor` times as loud. Above 0.
    virtual void turned(float factor) noexcept { static_cast<void>(factor); }

    /// The next 10 ms of the microphone; `delayHintMs` is the expected time from `render` to the echo's arrival here.
    /// `in` and `out` may be the same.
    virtual void capture(std::span<const float, frameSize> in, int delayHintMs,
                         std::span<float, frameSize> out) noexcept = 0;
};

} // namespace palomet
