#include "audio/capture/Resampler.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace palomet {
namespace {

/// Symmetric: -32768 is never given. NaN is not less than 1 and becomes the greatest sample.
std::int16_t toInt16(float value) {
    const float clamped = std::max(value < 1 ? value : 1.0F, -1.0F);
    return static_cast<std::int16_t>(clamped * 32767.0F);
}

float interpolate(float a, float b, double fraction) {
    return a + (b - a) * static_cast<float>(fraction);
}

} // namespace

Resampler::Resampler(double from, double to)
    : m_step(from / to) {
    assert(std::isfinite(m_step) && m_step > 0);
}

std::size_t Resampler::capacity(std::size_t count) const {
    return static_cast<std::size_t>(static_cast<double>(count) / m_step) + 2;
}

std::size_t Resampler::process(std::span<const float> samples, std::span<std::int16_t> output) noexcept {
    assert(output.size() >= capacity(samples.size()));
    if (samples.empty())
        return 0;

    const auto count = static_cast<double>(samples.size());
    const float *input = samples.data();
    double position = m_position;
    std::int16_t *next = output.data();
    // Up to the first input sample, the interpolation starts at the last one of the buffer before.
    for (; position < 1; position += m_step)
        *next++ = toInt16(interpolate(m_last, input[0], position));
    for (; position < count; position += m_step) {
        const auto index = static_cast<std::ptrdiff_t>(position);
        const auto fraction = position - static_cast<double>(index);
        *next++ = toInt16(interpolate(input[index - 1], input[index], fraction));
    }
    m_position = position - count;
    m_last = samples.back();
    return static_cast<std::size_t>(next - output.data());
}

} // namespace palomet
