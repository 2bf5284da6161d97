#pragma once

#include <bit>
#include <cstdint>

namespace palomet::echo {

// Elementary functions by additions, multiplications and divisions alone: the same bits on every processor of a kind,
// which a C library that chooses by processor does not promise, and without calls, so that loops of them are
// vectorised. Relative errors are below 1e-6. For finite arguments.

/// e to the power of `x`, which is cut to -80 to 80.
inline float exponential(float x) noexcept {
    constexpr float log2e = 1.44269504F;
    constexpr float rounding = 12582912; // 1.5 * 2^23: what is added to it loses its fraction.
    const float low = x < -80 ? -80 : x;
    const float power = (low > 80 ? 80 : low) * log2e;
    const float whole = (power + rounding) - rounding;
    // 2^f for f from -0.5 to 0.5, by its series.
    const float f = power - whole;
    float sum = 1.5403530e-4F;
    sum = sum * f + 1.3333558e-3F;
    sum = sum * f + 9.6181291e-3F;
    sum = sum * f + 5.5504109e-2F;
    sum = sum * f + 2.4022651e-1F;
    sum = sum * f + 6.9314718e-1F;
    sum = sum * f + 1.0F;
    return sum * std::bit_cast<float>((static_cast<std::int32_t>(whole) + 127) << 23);
}

inline float sigmoid(float x) noexcept {
    return 1 / (1 + exponential(-x));
}

inline float hyperbolicTangent(float x) noexcept {
    return 1 - 2 / (1 + exponential(2 * x));
}

/// The logarithm to base 2 of a normal positive number.
inline float binaryLogarithm(float x) noexcept {
    // x is 2^exponent times m, m between the roots of 1/2 and 2; log m by the series of the area tangent.
    constexpr std::int32_t rootOfHalf = 0x3f3504f3;
    const auto bits = std::bit_cast<std::int32_t>(x) - rootOfHalf;
    const auto exponent = static_cast<float>(bits >> 23);
    const float m = std::bit_cast<float>((bits & 0x7fffff) + rootOfHalf);
    const float t = (m - 1) / (m + 1);
    const float square = t * t;
    float sum = 0.32059889F; // 2 / (9 ln 2)
    sum = sum * square + 0.41219858F;
    sum = sum * square + 0.57707802F;
    sum = sum * square + 0.96179669F;
    sum = sum * square + 2.88539008F;
    return exponent + sum * t;
}

} // namespace palomet::echo
