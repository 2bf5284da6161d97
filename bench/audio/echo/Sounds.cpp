#include "bench/audio/echo/Sounds.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace palomet::bench {
namespace {

/// A low pass of the first order.
class Smoother {
public:
    explicit Smoother(double frequency)
        : m_share(static_cast<float>(1 - std::exp(-2 * std::numbers::pi * frequency / sampleRate))) {}
    float operator()(float sample) { return m_value += m_share * (sample - m_value); }

private:
    float m_share;
    float m_value = 0;
};

/// Follows loudness up at once and down slowly.
class Envelope {
public:
    explicit Envelope(double release)
        : m_fall(static_cast<float>(std::exp(-1 / (release * sampleRate)))) {}
    float operator()(float sample) { return m_value = std::max(std::abs(sample), m_fall * m_value); }

private:
    float m_fall;
    float m_value = 0;
};

float limited(float sample, float &gain, Envelope &envelope) {
    constexpr float most = 0.15F;
    const float wanted = std::min(1.0F, most / std::max(envelope(sample), 1e-6F));
    gain += (wanted < gain ? 0.02F : 0.0003F) * (wanted - gain);
    return gain * sample;
}

float tone(double frequency, std::size_t at, double fall) {
    const double time = static_cast<double>(at) / sampleRate;
    double sum = 0;
    for (int harmonic = 1; harmonic <= 6; ++harmonic)
        sum += std::sin(2 * std::numbers::pi * frequency * harmonic * time) / harmonic;
    return static_cast<float>(sum * std::exp(-time / fall));
}

} // namespace

Signal playedBy(Loudspeaker loudspeaker, const Signal &signal, std::uint32_t seed) {
    Signal played = signal;
    switch (loudspeaker) {
    case Loudspeaker::Linear:
        break;
    case Loudspeaker::SoftClipping:
        for (float &sample : played)
            sample = std::tanh(7 * sample) / 7;
        break;
    case Loudspeaker::Excursion: {
        Smoother cone(250);
        Smoother coneAgain(250);
        for (float &sample : played) {
            const float reach = coneAgain(cone(sample)) / 0.1F;
            sample *= 1 / (1 + 0.4F * reach * reach) + 0.15F * std::tanh(reach);
        }
        break;
    }
    case Loudspeaker::Limiter: {
        Envelope envelope(0.02);
        float gain = 1;
        for (float &sample : played)
            sample = limited(sample, gain, envelope);
        break;
    }
    case Loudspeaker::Rattling: {
        Noise noise(seed);
        Envelope envelope(0.005);
        Smoother low(700);
        for (float &sample : played) {
            const float beyond = std::max(0.0F, envelope(sample) - 0.2F);
            const float buzz = noise() * beyond;
            sample += 0.25F * (buzz - low(buzz));
        }
        break;
    }
    }
    return played;
}

Signal music(std::size_t length, double level, std::uint32_t seed) {
    static constexpr std::array chords{std::array{0, 4, 7}, std::array{9, 12, 16}, std::array{5, 9, 12},
                                       std::array{7, 11, 14}};
    static constexpr std::array scale{0, 2, 4, 7, 9, 12};
    Noise noise(seed);
    const double root = 130 * (1 + 0.4 * (static_cast<double>(noise()) + 1) / 2);
    const auto beat = samplesIn(60.0 / (95 + 20 * static_cast<double>(noise())));
    const auto frequency = [&](int halfTones) { return root * std::pow(2, halfTones / 12.0); };
    Signal result(length);
    const auto add = [&](std::size_t from, std::size_t duration, const auto &sound) {
        for (std::size_t i = 0; i < duration && from + i < length; ++i)
            result[from + i] += sound(i);
    };
    for (std::size_t at = 0, count = 0; at < length; at += beat, ++count) {
        if (count % 4 == 0) {
            for (const int note : chords[count / 4 % chords.size()])
                add(at, 4 * beat, [&](std::size_t i) { return 0.15F * tone(frequency(note), i, 1.2); });
        }
        const auto pick = static_cast<std::size_t>((noise() + 1) / 2 * static_cast<float>(scale.size() - 1) + 0.5F);
        add(at, beat, [&](std::size_t i) { return 0.2F * tone(2 * frequency(scale[pick]), i, 0.35); });
        add(at + beat / 2, beat / 2, [&](std::size_t i) {
            return 0.15F * noise() * static_cast<float>(std::exp(-static_cast<double>(i) / samplesIn(0.03)));
        });
    }
    setActiveLevel(result, -20);
    const auto gain = static_cast<float>(std::pow(10, (level + 20) / 20));
    for (float &sample : result)
        sample *= gain;
    return result;
}

Signal automaticGain(const Signal &signal, double level) {
    constexpr double most = 10; // dB.
    Signal gains(signal.size());
    const auto wanted = std::pow(10, level / 10);
    double power = wanted;
    for (std::size_t i = 0; i < signal.size(); ++i) {
        const double square = std::pow(static_cast<double>(signal[i]), 2);
        // Pauses are no reason to turn it up.
        if (square > wanted / 1000)
            power += (square > power ? 2e-4 : 1e-5) * (square - power);
        const double decibels = std::clamp(10 * std::log10(wanted / power), -most, most);
        gains[i] = static_cast<float>(std::pow(10, decibels / 20));
    }
    return gains;
}

} // namespace palomet::bench
