#include "bench/audio/echo/Scenario.h"

#include "bench/audio/echo/Hardship.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace palomet::bench {
namespace {

constexpr double echoLevel = -26; // dBFS.
constexpr double jumpRamp = 0.01;

/// An impulse response by its statistics: the direct sound, and behind it noise that falls off by 60 dB in the
/// reverberation time. How loud that is beside the direct sound follows from the critical distance of a room of 50 m³
/// heard from half a metre (H. Kuttruff, Room Acoustics, 5th ed., 5.1).
Signal room(double reverberation, std::uint32_t seed) {
    Noise noise(seed);
    const double criticalDistance = 0.057 * std::sqrt(50 / reverberation);
    const double tailEnergy = std::pow(0.5 / criticalDistance, 2);
    Signal response(samplesIn(reverberation));
    const std::size_t firstReflection = samplesIn(0.002);
    double energy = 0;
    for (std::size_t i = firstReflection; i < response.size(); ++i) {
        const double fall = std::pow(10, -3 * static_cast<double>(i) / static_cast<double>(response.size()));
        response[i] = noise() * static_cast<float>(fall);
        energy += static_cast<double>(response[i]) * static_cast<double>(response[i]);
    }
    const auto gain = static_cast<float>(std::sqrt(tailEnergy / energy));
    for (float &sample : response)
        sample *= gain;
    response[0] = 1;
    return response;
}

Signal delayed(const Signal &signal, std::size_t by) {
    Signal result(signal.size());
    std::copy(signal.begin(), signal.end() - static_cast<std::ptrdiff_t>(by),
              result.begin() + static_cast<std::ptrdiff_t>(by));
    return result;
}

Signal echoOf(const Signal &reference, const Scenario &scenario) {
    Signal played = reference;
    if (scenario.isSoftClipped) {
        setActiveLevel(played, -6);
        for (float &sample : played)
            sample = std::tanh(2 * sample);
    }
    const auto heard = drifted(convolve(played, room(scenario.reverberation, scenario.seed)), scenario.driftPpm);
    auto echo = delayed(heard, samplesIn(scenario.delayMs / 1000.0));
    if (scenario.jumpMs != 0) {
        const auto later = delayed(heard, samplesIn((scenario.delayMs + scenario.jumpMs) / 1000.0));
        const auto from = samplesIn(scenario.jumpAt());
        for (std::size_t i = from; i < echo.size(); ++i) {
            const auto share = static_cast<float>(
                std::min(1.0, static_cast<double>(i - from) / static_cast<double>(samplesIn(jumpRamp))));
            echo[i] += share * (later[i] - echo[i]);
        }
    }
    setActiveLevel(echo, echoLevel);
    return echo;
}

} // namespace

std::vector<Scenario> scenarios(std::uint32_t set) {
    static constexpr std::array farVoices{Voice{"en-us+m3", 165}, Voice{"en-gb+f2", 160}, Voice{"en-us+m7", 170},
                                          Voice{"en-gb+f4", 165}, Voice{"en-us+f1", 160}, Voice{"en-gb+m1", 165}};
    static constexpr std::array nearVoices{Voice{"en-us+f3", 150}, Voice{"en-us+m2", 150}, Voice{"en-us+m5", 145},
                                           Voice{"en-us+f5", 150}, Voice{"en-us+m1", 150}};
    std::vector<Scenario> all;
    const auto add = [&](std::string name, const auto &change) {
        Scenario scenario;
        scenario.name = std::move(name);
        const auto index = static_cast<std::uint32_t>(all.size()) + 7 * (set - 1);
        scenario.seed = 1000 * set + index;
        scenario.farVoice = farVoices[index % farVoices.size()];
        scenario.nearVoice = nearVoices[index % nearVoices.size()];
        change(scenario);
        all.push_back(scenario);
    };

    for (const double signalToEcho : {0.0, 6.0, -6.0}) {
        for (const int delayMs : {20, 80, 200}) {
            for (const double reverberation : {0.2, 0.5}) {
                add(std::to_string(delayMs) + " ms, RT60 " + (reverberation < 0.3 ? "0.2" : "0.5") + " s, SER " +
                        std::to_string(static_cast<int>(signalToEcho)) + " dB",
                    [&](Scenario &scenario) {
                        scenario.signalToEcho = signalToEcho;
                        scenario.delayMs = delayMs;
                        scenario.reverberation = reverberation;
                    });
            }
        }
    }
    const auto addSpecial = [&](std::string name, const auto &change) {
        add(std::move(name), change);
        all.back().isSpecial = true;
    };
    addSpecial("drift +200 ppm", [](Scenario &scenario) { scenario.driftPpm = 200; });
    addSpecial("drift -200 ppm", [](Scenario &scenario) { scenario.driftPpm = -200; });
    addSpecial("delay jumps by 50 ms", [](Scenario &scenario) { scenario.jumpMs = 50; });
    addSpecial("soft-clipped loudspeaker", [](Scenario &scenario) { scenario.isSoftClipped = true; });
    addSpecial("noise at -60 dBFS", [](Scenario &scenario) { scenario.noiseLevel = -60; });
    addSpecial("noise at -45 dBFS", [](Scenario &scenario) { scenario.noiseLevel = -45; });
    return all;
}

Recording nearEndAlone(Recording recording) {
    recording.microphone = recording.nearEnd;
    for (auto *signal : {&recording.reference, &recording.echo})
        std::fill(signal->begin(), signal->end(), 0.0F);
    return recording;
}

Result<Recording> record(const Scenario &scenario, Speaker &speaker) {
    auto program = speaker.talk(scenario.farVoice, programSentences(), scenario.seed, scenario.seconds());
    if (!program)
        return Failure{program.reason()};
    auto user = speaker.talk(scenario.nearVoice, userSentences(), scenario.seed, scenario.both);
    if (!user)
        return Failure{user.reason()};
    if (scenario.hardship)
        return recordHardship(scenario, *scenario.hardship, {std::move(*program), std::move(*user)}, speaker);

    Recording recording;
    recording.reference = std::move(program->signal);
    setActiveLevel(recording.reference, -20);
    recording.echo = echoOf(recording.reference, scenario);

    Signal talk(recording.reference.size());
    std::copy(user->signal.begin(), user->signal.end(),
              talk.begin() + static_cast<std::ptrdiff_t>(samplesIn(scenario.farAlone)));
    recording.nearEnd = convolve(talk, room(scenario.reverberation, scenario.seed + 500));
    setActiveLevel(recording.nearEnd, echoLevel + scenario.signalToEcho);
    recording.nearSentences = std::move(user->sentences);

    Noise noise(scenario.seed + 900);
    const auto noiseGain = static_cast<float>(std::sqrt(3) * std::pow(10, scenario.noiseLevel / 20));
    recording.microphone.resize(recording.reference.size());
    for (std::size_t i = 0; i < recording.microphone.size(); ++i)
        recording.microphone[i] =
            std::clamp(recording.nearEnd[i] + recording.echo[i] + noiseGain * noise(), -1.0F, 1.0F);
    return recording;
}

} // namespace palomet::bench
