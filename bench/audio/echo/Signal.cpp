#include "bench/audio/echo/Signal.h"

#include "bench/audio/echo/Fourier.h"

#include <soxr.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace palomet::bench {

double meanSquare(std::span<const float> signal) {
    double sum = 0;
    for (const float sample : signal)
        sum += static_cast<double>(sample) * static_cast<double>(sample);
    return signal.empty() ? 0 : sum / static_cast<double>(signal.size());
}

double toDecibels(double powerRatio) {
    return 10 * std::log10(std::max(powerRatio, 1e-12));
}

double activeLevel(std::span<const float> signal) {
    constexpr std::size_t frameSize = sampleRate / 50;
    constexpr double silence = 1e-5;
    double sum = 0;
    std::size_t count = 0;
    for (; signal.size() >= frameSize; signal = signal.subspan(frameSize)) {
        const double power = meanSquare(signal.first(frameSize));
        if (power > silence) {
            sum += power;
            ++count;
        }
    }
    return toDecibels(count == 0 ? 0 : sum / static_cast<double>(count));
}

void setActiveLevel(Signal &signal, double dbfs) {
    // Which frames count as silence depends on the level itself, so it is approached.
    for (int i = 0; i < 3; ++i) {
        const auto gain = static_cast<float>(std::pow(10, (dbfs - activeLevel(signal)) / 20));
        for (float &sample : signal)
            sample *= gain;
    }
}

Signal convolve(std::span<const float> signal, std::span<const float> response) {
    std::size_t size = 1;
    while (size < 4 * response.size())
        size *= 2;
    const std::size_t step = size - response.size() + 1;
    Spectrum filter(size);
    std::copy(response.begin(), response.end(), filter.begin());
    transform(filter);

    Signal result(signal.size());
    for (std::size_t start = 0; start < signal.size(); start += step) {
        const auto piece = signal.subspan(start, std::min(step, signal.size() - start));
        Spectrum spectrum(size);
        std::copy(piece.begin(), piece.end(), spectrum.begin());
        transform(spectrum);
        std::transform(spectrum.begin(), spectrum.end(), filter.begin(), spectrum.begin(), std::multiplies<>());
        transformBack(spectrum);
        for (std::size_t i = 0; i < size && start + i < result.size(); ++i)
            result[start + i] += static_cast<float>(spectrum[i].real());
    }
    return result;
}

Signal drifted(const Signal &signal, double partsPerMillion) {
    if (partsPerMillion == 0)
        return signal;
    Signal result(signal.size() + samplesIn(1));
    std::size_t given = 0;
    const auto quality = soxr_quality_spec(SOXR_VHQ, 0);
    soxr_oneshot(1, 1 + partsPerMillion * 1e-6, 1, signal.data(), signal.size(), nullptr, result.data(), result.size(),
                 &given, nullptr, &quality, nullptr);
    result.resize(signal.size());
    return result;
}

} // namespace palomet::bench
