#pragma once

#include "audio/echo/Samples.h"

#include <array>
#include <memory>

namespace palomet::echo {

/// The lower of the bands that AEC3 cuts a signal into, without what lies below a voice, and as late as its linear
/// output: what the linear filter is given. While nothing is played it is the linear output, to the last few bits.
class LowBand {
public:
    static constexpr int frameSize = 160;
    using Frame = std::array<float, frameSize>; ///< 10 ms at 16 kHz.

    LowBand();
    ~LowBand();
    LowBand(const LowBand &) = delete;
    LowBand &operator=(const LowBand &) = delete;

    Frame process(FrameView samples) noexcept;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace palomet::echo
