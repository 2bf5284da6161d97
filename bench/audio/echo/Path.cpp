#include "bench/audio/echo/Path.h"

#include "audio/capture/CaptureChain.h"
#include "audio/echo/EchoReference.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace palomet::bench {

Processed processOnPath(const Recording &recording, const Scenario &scenario,
                        std::unique_ptr<EchoCanceller> canceller) {
    using std::chrono::microseconds;
    constexpr double millisecond = sampleRate / 1000.0;
    constexpr double quietSeconds = 3;
    constexpr double toldWrong = 1 * millisecond;
    const double delay = scenario.delayMs * millisecond;
    const double queue = std::min(36 * millisecond, 0.8 * delay);
    const double speakersSample = 1 + scenario.driftPpm * 1e-6; // Of the microphone's.

    Processed processed;
    EchoReference reference;
    CaptureChain chain(std::move(canceller), [&](PcmSamples samples) {
        std::transform(samples.begin(), samples.end(), std::back_inserter(processed.samples),
                       [](std::int16_t sample) { return static_cast<float>(sample) / 32767; });
    });
    Noise noise(scenario.seed + 4000);
    const auto odd = [&](double least, double most) {
        return least + (most - least) * (static_cast<double>(noise()) + 1) / 2;
    };
    // The program opens both streams when it starts, and does not speak at once.
    const auto quiet = samplesIn(quietSeconds);
    const auto afterQuiet = [quiet](const Signal &signal, double noiseGain) {
        Noise hiss(1);
        Signal later(quiet);
        for (float &sample : later)
            sample = static_cast<float>(noiseGain) * hiss();
        later.insert(later.end(), signal.begin(), signal.end());
        return later;
    };
    const auto microphone = afterQuiet(recording.microphone, std::sqrt(3) * std::pow(10, scenario.noiseLevel / 20));
    const auto played = afterQuiet(recording.reference, 0);
    const auto start = std::clock();
    std::size_t written = 0;
    std::size_t heard = 0;
    for (auto piece = samplesIn(0.02); heard < microphone.size(); piece = samplesIn(odd(0.002, 0.034))) {
        piece = std::min(piece, microphone.size() - heard);
        const double now = static_cast<double>(heard + piece) + odd(0, 2 * millisecond);
        const double wanted = (now - delay) / speakersSample + queue;
        for (auto asked = samplesIn(odd(0.006, 0.012)); static_cast<double>(written + asked) <= wanted;
             asked = samplesIn(odd(0.006, 0.012))) {
            Signal samples(asked);
            const auto there = std::min(asked, played.size() - std::min(written, played.size()));
            std::copy_n(played.begin() + static_cast<std::ptrdiff_t>(written), there, samples.begin());
            reference.write(samples);
            written += asked;
        }
        const double until = static_cast<double>(written) * speakersSample + delay - static_cast<double>(heard) +
                             odd(-toldWrong, toldWrong);
        chain.captured(std::span(microphone).subspan(heard, piece),
                       microseconds(std::llround(until / sampleRate * 1e6)), reference);
        heard += piece;
    }
    processed.microsecondsAFrame = 1e6 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC /
                                   (static_cast<double>(microphone.size()) / EchoCanceller::frameSize);
    processed.samples.erase(processed.samples.begin(), processed.samples.begin() + samplesIn(quietSeconds, heardRate));
    return processed;
}

} // namespace palomet::bench
