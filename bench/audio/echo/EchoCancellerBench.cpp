#include "audio/echo/EchoCanceller.h"
#include "audio/echo/MaskWeights.h"
#include "bench/audio/echo/PlainCanceller.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

// One frame of 10 ms past the canceller, its mask included, while both ends talk, beside its floor: the library's
// canceller with the settings that it comes with.

using namespace palomet;

namespace {

/// Two seconds of noise that comes and goes as syllables do.
std::vector<EchoCanceller::Frame> syllables(unsigned seed) {
    std::minstd_rand random(seed);
    std::uniform_real_distribution<float> noise(-0.2F, 0.2F);
    std::vector<EchoCanceller::Frame> frames(200);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        for (float &sample : frames[i])
            sample = i % 25 < 15 ? noise(random) : 0.0F;
    }
    return frames;
}

void run(benchmark::State &state, EchoCanceller *canceller) {
    if (canceller == nullptr) {
        state.SkipWithError("no such canceller");
        return;
    }
    constexpr int delayFrames = 8;
    const auto far = syllables(1);
    const auto near = syllables(2);
    EchoCanceller::Frame microphone{};
    EchoCanceller::Frame heard{};
    std::size_t frame = 0;
    for (auto _ : state) {
        const auto &echo = far[(frame + far.size() - delayFrames) % far.size()];
        for (std::size_t i = 0; i < microphone.size(); ++i)
            microphone[i] = 0.3F * echo[i] + near[frame * 7 % near.size()][i];
        canceller->render(far[frame % far.size()]);
        canceller->capture(microphone, 10 * delayFrames, heard);
        benchmark::DoNotOptimize(heard);
        ++frame;
    }
}

void echoCanceller(benchmark::State &state) {
    const auto mask = echo::MaskWeights::read(QStringLiteral(PALOMET_SOURCE_DIR "/resources"));
    const auto canceller = EchoCanceller::create(mask ? *mask : nullptr);
    run(state, canceller ? canceller->get() : nullptr);
}

void plainCanceller(benchmark::State &state) {
    const auto canceller = bench::createPlainCanceller();
    run(state, canceller.get());
}

} // namespace

BENCHMARK(echoCanceller);
BENCHMARK(plainCanceller);
