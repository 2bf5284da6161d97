#include "bench/audio/echo/Fourier.h"

#include <cassert>
#include <numbers>

namespace palomet::bench {

void transform(Spectrum &values) {
    const std::size_t size = values.size();
    assert((size & (size - 1)) == 0);
    for (std::size_t i = 1, reversed = 0; i < size; ++i) {
        std::size_t bit = size / 2;
        for (; reversed & bit; bit /= 2)
            reversed ^= bit;
        reversed ^= bit;
        if (i < reversed)
            std::swap(values[i], values[reversed]);
    }
    Spectrum turns(size / 2);
    for (std::size_t i = 0; i < turns.size(); ++i)
        turns[i] = std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(size));
    for (std::size_t half = 1; half < size; half *= 2) {
        const std::size_t stride = size / 2 / half;
        for (std::size_t start = 0; start < size; start += 2 * half) {
            for (std::size_t i = 0; i < half; ++i) {
                auto &low = values[start + i];
                auto &high = values[start + i + half];
                const auto turned = high * turns[i * stride];
                high = low - turned;
                low += turned;
            }
        }
    }
}

void transformBack(Spectrum &values) {
    for (auto &value : values)
        value = std::conj(value);
    transform(values);
    const auto size = static_cast<double>(values.size());
    for (auto &value : values)
        value = std::conj(value) / size;
}

} // namespace palomet::bench
