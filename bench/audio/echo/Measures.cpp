#include "bench/audio/echo/Measures.h"

#include "audio/capture/Resampler.h"
#include "bench/audio/echo/Fourier.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <ctime>
#include <numbers>

namespace palomet::bench {
namespace {

using View = std::span<const float>;

View cut(View signal, double from, double to) {
    const auto begin = std::min(samplesIn(from, heardRate), signal.size());
    return signal.subspan(begin, std::min(samplesIn(to, heardRate), signal.size()) - begin);
}

/// By how many samples the canceller delays the near end: where the two agree best while both talk.
std::size_t latency(View nearEnd, View heard) {
    std::size_t size = 1;
    while (size < nearEnd.size() + heard.size())
        size *= 2;
    Spectrum a(size);
    Spectrum b(size);
    std::copy(nearEnd.begin(), nearEnd.end(), a.begin());
    std::copy(heard.begin(), heard.end(), b.begin());
    transform(a);
    transform(b);
    for (std::size_t i = 0; i < size; ++i)
        b[i] *= std::conj(a[i]);
    transformBack(b);
    const auto most = b.begin() + static_cast<std::ptrdiff_t>(samplesIn(0.03, heardRate));
    return static_cast<std::size_t>(
        std::max_element(b.begin(), most, [](auto left, auto right) { return left.real() < right.real(); }) -
        b.begin());
}

/// Seconds from `from` to where the echo is 20 dB lower in the output than in the microphone, and stays so for a
/// second.
std::optional<double> timeTo20Db(View echo, View heard, double from, double to) {
    constexpr double window = 0.25;
    constexpr double step = 0.05;
    constexpr double stays = 1;
    constexpr double audible = 1e-4;
    double first = from;
    while (first + window < to && meanSquare(cut(echo, first, first + window)) < audible)
        first += step;
    for (double at = first; at + stays <= to; at += step) {
        const auto reduction = [&](double length) {
            return toDecibels(meanSquare(cut(echo, at, at + length)) /
                              std::max(meanSquare(cut(heard, at, at + length)), 1e-12));
        };
        if (reduction(window) >= 20 && reduction(stays) >= 20)
            return at - first;
    }
    return std::nullopt;
}

/// Mean over the bins of the squared difference of two frames' levels, below 60 dB under full scale all being the same.
double spectralDistance(View a, View b) {
    const auto levels = [](View frame) {
        Spectrum spectrum(512);
        for (std::size_t i = 0; i < frame.size(); ++i) {
            const auto phase = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(frame.size());
            spectrum[i] = static_cast<double>(frame[i]) * (0.5 - 0.5 * std::cos(phase));
        }
        transform(spectrum);
        std::vector<double> result;
        for (std::size_t i = 1; i < 256; ++i)
            result.push_back(toDecibels(std::norm(spectrum[i] / 128.0) + 1e-8));
        return result;
    };
    const auto left = levels(a);
    const auto right = levels(b);
    double sum = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        sum += (left[i] - right[i]) * (left[i] - right[i]);
    return std::sqrt(sum / static_cast<double>(left.size()));
}

/// `softer` than usual by so many decibels the near end's strong frames are, too.
void measureNearEnd(View nearEnd, View heard, double softer, Measures &measures) {
    constexpr std::size_t frameSize = heardRate / 50;
    const double strong = std::pow(10, (-32 - softer) / 10.0);
    std::size_t count = 0;
    std::size_t lost = 0;
    double distance = 0;
    const auto size = std::min(nearEnd.size(), heard.size());
    for (std::size_t at = 0; at + frameSize <= size; at += frameSize) {
        const auto said = nearEnd.subspan(at, frameSize);
        const auto left = heard.subspan(at, frameSize);
        if (meanSquare(said) < strong)
            continue;
        ++count;
        lost += meanSquare(left) < 0.1 * meanSquare(said) ? 1 : 0;
        distance += spectralDistance(said, left);
    }
    if (count == 0)
        return;
    measures.lostPercent = 100 * static_cast<double>(lost) / static_cast<double>(count);
    measures.spectralDistanceDb = distance / static_cast<double>(count);
}

} // namespace

Signal asHeard(const Signal &signal) {
    Resampler resampler(sampleRate, heardRate);
    std::vector<std::int16_t> samples(resampler.capacity(signal.size()));
    samples.resize(resampler.process(signal, samples));
    Signal heard(samples.size());
    std::transform(samples.begin(), samples.end(), heard.begin(),
                   [](std::int16_t sample) { return static_cast<float>(sample) / 32767; });
    return heard;
}

Processed process(const Recording &recording, const Scenario &scenario, EchoCanceller *canceller) {
    if (!canceller)
        return {asHeard(recording.microphone), 0};
    constexpr std::size_t frameSize = EchoCanceller::frameSize;
    Signal output(recording.microphone.size());
    std::size_t frames = 0;
    const auto start = std::clock(); // Of this process, whatever else the machine does.
    for (std::size_t at = 0; at + frameSize <= output.size(); at += frameSize, ++frames) {
        canceller->render(std::span(recording.reference).subspan(at).first<frameSize>());
        canceller->capture(std::span(recording.microphone).subspan(at).first<frameSize>(), scenario.delayMs,
                           std::span(output).subspan(at).first<frameSize>());
    }
    const auto took = 1e6 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    return {asHeard(output), took / static_cast<double>(frames)};
}

Measures measure(const Recording &recording, const Scenario &scenario, const Processed &processed) {
    constexpr double settling = 1; // For the near end's reverberation to die away.
    const auto echo = asHeard(recording.echo);
    const auto nearEnd = asHeard(recording.nearEnd);
    const View heard = processed.samples;
    const double both = scenario.farAlone;
    const double again = both + scenario.both;

    const auto energy = [&](View signal) {
        const auto first = cut(signal, scenario.farAlone / 2, both);
        const auto last = cut(signal, again + settling, scenario.seconds());
        return meanSquare(first) * static_cast<double>(first.size()) +
               meanSquare(last) * static_cast<double>(last.size());
    };
    Measures measures;
    measures.erleDb = toDecibels(energy(echo) / std::max(energy(heard), 1e-12));
    measures.secondsTo20Db = timeTo20Db(echo, heard, 0, both);
    if (scenario.jumpMs != 0)
        measures.recoverySeconds = timeTo20Db(echo, heard, scenario.jumpAt(), both);

    constexpr double piece = 0.1;
    for (double at = settling; at + piece <= scenario.seconds(); at += piece / 2) {
        if (at + piece <= both || at >= again + settling)
            measures.ownVoiceDb = std::max(measures.ownVoiceDb, toDecibels(meanSquare(cut(heard, at, at + piece))));
    }

    const auto said = cut(nearEnd, both, again);
    const auto late = latency(said, cut(heard, both, again));
    const double softer = scenario.hardship ? std::max(0.0, -scenario.signalToEcho) : 0;
    measureNearEnd(said, heard.subspan(std::min(samplesIn(both, heardRate) + late, heard.size())), softer, measures);
    return measures;
}

} // namespace palomet::bench
