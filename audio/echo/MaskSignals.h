#pragma once

#include <array>

namespace palomet::echo {

inline constexpr std::size_t lowFrameSize = 160;
using LowFrame = std::array<float, lowFrameSize>; ///< 10 ms at 16 kHz.

/// The signals that a mask goes by: what the linear filter leaves and the microphone, in step with one another, and
/// what the suppressor leaves, later by its own time.
struct MaskSignals {
    LowFrame linear{};
    LowFrame microphone{};
    LowFrame suppressed{};
};

} // namespace palomet::echo
