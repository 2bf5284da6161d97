#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace palomet {

/// Brings the microphone's float samples down to 16-bit samples at the rate that the backend expects, by linear
/// interpolation without a filter. It lags one input sample, always, so consecutive buffers join without a click. One
/// instance serves one capture configuration and is fed every buffer in order, on one thread.
class Resampler {
public:
    Resampler(double from, double to);

    /// The most samples that `process` can give for `count` input samples.
    [[nodiscard]] std::size_t capacity(std::size_t count) const;

    /// Converts one buffer and returns how many samples were written to the front of `output`, which has room for
    /// `capacity(samples.size())`. Never allocates.
    std::size_t process(std::span<const float> samples, std::span<std::int16_t> output) noexcept;

    [[nodiscard]] double step() const { return m_step; }
    [[nodiscard]] double position() const { return m_position; }
    [[nodiscard]] float last() const { return m_last; }

private:
    double m_step;         ///< Input samples an output sample.
    double m_position = 0; ///< Of the next output sample, from the first sample of the next buffer on.
    float m_last = 0;      ///< The last input sample of the previous buffer.
};

} // namespace palomet
