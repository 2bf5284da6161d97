#pragma once

#include "base/Result.h"

#include <array>
#include <memory>
#include <optional>
#include <span>

namespace palomet {

/// What the canceller says of itself, for diagnosis only.
struct EchoCancellerState {
    QString library;            ///< Which implementation this build has, in words.
    bool isConverged = false;   ///< It has found the echo path.
    std::optional<int> delayMs; ///< Estimated delay from reference to echo.
    std::optional<double> echoReturnLossEnhancementDb;

    /// All of it in one line, for whoever looks for a fault.
    [[nodiscard]] QString inWords() const;
};

/// Takes the program's own speech out of what the microphone hears: 48 kHz mono in frames of 10 ms. Not thread-safe:
/// one thread calls `render`, `capture` and `reset`; `state` may be called from any thread. No call after creation
/// allocates memory of ours, locks or logs. The same input gives the same output, always.
class EchoCanceller {
public:
    static constexpr int frameSize = 480;
    using Frame = std::array<float, frameSize>;

    /// Made by the library that was chosen at build time.
    static Result<std::unique_ptr<EchoCanceller>> create();

    EchoCanceller() = default;
    EchoCanceller(const EchoCanceller &) = delete;
    EchoCanceller &operator=(const EchoCanceller &) = delete;
    virtual ~EchoCanceller() = default;

    /// The next 10 ms that were handed to the speakers. Exactly once for every `capture`, before it, zeros included: a
    /// skipped silent frame costs 20 to 30 dB.
    virtual void render(std::span<const float, frameSize> reference) noexcept = 0;

    /// The next 10 ms of the microphone; `delayHintMs` is the expected time from `render` to the echo's arrival here.
    /// `in` and `out` may be the same.
    virtual void capture(std::span<const float, frameSize> in, int delayHintMs,
                         std::span<float, frameSize> out) noexcept = 0;

    /// Forgets the room: another device, another server.
    virtual void reset() noexcept = 0;

    [[nodiscard]] virtual EchoCancellerState state() const = 0;
};

} // namespace palomet
