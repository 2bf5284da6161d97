#pragma once

#include "audio/echo/EchoCanceller.h"

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

/// Mixes `other` into `frame`: its share goes from `from` to `to` over the frame.
inline void crossFade(EchoCanceller::Frame &frame, FrameView other, float from, float to) noexcept {
    const float step = (to - from) / EchoCanceller::frameSize;
    for (std::size_t i = 0; i < frame.size(); ++i)
        frame[i] += (from + step * static_cast<float>(i + 1)) * (other[i] - frame[i]);
}

/// Of a multiple of four samples.
inline float meanSquare(std::span<const float> samples) noexcept {
    // Sums that do not wait for one another.
    std::array<float, 4> sums{};
    for (std::size_t i = 0; i + 3 < samples.size(); i += 4) {
        for (std::size_t part = 0; part < 4; ++part)
            sums[part] += samples[i + part] * samples[i + part];
    }
    return (sums[0] + sums[1] + sums[2] + sums[3]) / static_cast<float>(samples.size());
}

} // namespace palomet::echo
