#pragma once

#include "audio/EchoCanceller.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace palomet::echo {

using FrameView = std::span<const float, EchoCanceller::frameSize>;

/// A frame as every canceller can take it: within full scale, and silence for what is not a number. One bad sample
/// would otherwise stay in the filters for good.
inline EchoCanceller::Frame clean(FrameView samples) noexcept {
    EchoCanceller::Frame frame;
    std::transform(samples.begin(), samples.end(), frame.begin(),
                   [](float sample) { return std::isfinite(sample) ? std::clamp(sample, -1.0F, 1.0F) : 0.0F; });
    return frame;
}

/// Takes a constant offset out of the microphone, a high pass of the first order at 10 Hz. The libraries' own high pass
/// lets up to a fiftieth of an offset through, which their suppressor then chops into noise.
class OffsetFilter {
public:
    void apply(EchoCanceller::Frame &frame) noexcept {
        for (float &sample : frame) {
            m_output = sample - m_input + decay * m_output;
            m_input = sample;
            sample = m_output;
        }
    }

private:
    static constexpr float decay = 0.99869F; // exp(-2 pi 10 Hz / 48 kHz)

    float m_input = 0;
    float m_output = 0;
};

inline float meanSquare(FrameView samples) noexcept {
    float sum = 0;
    for (const float sample : samples)
        sum += sample * sample;
    return sum / EchoCanceller::frameSize;
}

} // namespace palomet::echo
