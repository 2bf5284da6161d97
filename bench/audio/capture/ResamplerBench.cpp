#include "audio/capture/Resampler.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

// One buffer of 1024 frames brought down to 16 kHz, beside its floor: the same interpolation and the same clamping in
// one plain loop that carries nothing from one buffer to the next.

namespace {

std::vector<float> tone(std::size_t count) {
    std::vector<float> samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = 0.5F * std::sin(0.05F * static_cast<float>(i));
    return samples;
}

void resampler(benchmark::State &state) {
    const auto input = tone(1024);
    palomet::Resampler resampler(static_cast<double>(state.range(0)), 16000);
    std::vector<std::int16_t> output(resampler.capacity(input.size()));
    for (auto _ : state) {
        benchmark::DoNotOptimize(resampler.process(input, output));
        benchmark::ClobberMemory();
    }
}

void plainLoop(benchmark::State &state) {
    const auto input = tone(1024);
    const double step = static_cast<double>(state.range(0)) / 16000;
    const float *samples = input.data();
    std::vector<std::int16_t> output(2048);
    for (auto _ : state) {
        double position = 1;
        std::size_t count = 0;
        for (; position < static_cast<double>(input.size()); position += step) {
            const auto index = static_cast<std::ptrdiff_t>(position);
            const auto fraction = static_cast<float>(position - static_cast<double>(index));
            const float a = samples[index - 1];
            const float value = a + (samples[index] - a) * fraction;
            output[count++] = static_cast<std::int16_t>(value < 1 ? std::max(value, -1.0F) * 32767.0F : 32767.0F);
        }
        benchmark::DoNotOptimize(count);
        benchmark::ClobberMemory();
    }
}

} // namespace

BENCHMARK(resampler)->Arg(44100)->Arg(48000);
BENCHMARK(plainLoop)->Arg(44100)->Arg(48000);
