#pragma once

#include <cstdint>
#include <random>
#include <span>
#include <vector>

namespace palomet::bench {

/// Mono samples, full scale 1; at 48 kHz where nothing else is said.
using Signal = std::vector<float>;

inline constexpr int sampleRate = 48000;

constexpr std::size_t samplesIn(double seconds, int rate = sampleRate) {
    return static_cast<std::size_t>(seconds * rate + 0.5);
}

/// Numbers between -1 and 1, the same from the same seed on every machine.
class Noise {
public:
    explicit Noise(std::uint32_t seed)
        : m_generator(seed) {}
    float operator()() { return static_cast<float>(m_generator()) * 0x1p-31F - 1; }

private:
    std::mt19937 m_generator;
};

double meanSquare(std::span<const float> signal);
double toDecibels(double powerRatio);

/// Level in dBFS of the frames of 20 ms that are not silence: pauses do not make a voice softer.
double activeLevel(std::span<const float> signal);

/// Scales the signal so that its active level is `dbfs`.
void setActiveLevel(Signal &signal, double dbfs);

/// The signal as heard through `response`, as long as it was.
Signal convolve(std::span<const float> signal, std::span<const float> response);

/// The signal as a clock sees it that runs so much too slow, in parts per million; as long as it was.
Signal drifted(const Signal &signal, double partsPerMillion);

} // namespace palomet::bench
