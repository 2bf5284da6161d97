#include "bench/audio/echo/Hardship.h"

#include "bench/audio/echo/Room.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace palomet::bench {
namespace {

constexpr double level = -26; // dBFS, of the echo, and of a near end as loud as it.
constexpr int stepsOfAWay = 10;

float gainOf(double decibels) {
    return static_cast<float>(std::pow(10, decibels / 20));
}

void amplify(Signal &signal, double decibels) {
    for (float &sample : signal)
        sample *= gainOf(decibels);
}

/// From `from` to `to` along a straight line, in metres.
std::vector<Place> way(const Place &from, const Place &to) {
    std::vector<Place> places(stepsOfAWay);
    for (std::size_t step = 0; step < places.size(); ++step) {
        const double share = static_cast<double>(step) / (stepsOfAWay - 1);
        for (std::size_t axis = 0; axis < 3; ++axis)
            places[step][axis] = from[axis] + share * (to[axis] - from[axis]);
    }
    return places;
}

/// Turned at nine seconds, back at twenty, and again at thirty; each time within a twentieth of a second.
void turn(Signal &signal, double decibels) {
    if (decibels == 0)
        return;
    static constexpr std::array times{9.0, 20.0, 30.0};
    for (std::size_t i = 0; i < signal.size(); ++i) {
        const double now = static_cast<double>(i) / sampleRate;
        double share = 0;
        for (std::size_t step = 0; step < times.size(); ++step)
            share += (step % 2 == 0 ? 1 : -1) * std::clamp((now - times[step]) / 0.05, 0.0, 1.0);
        signal[i] *= gainOf(share * decibels);
    }
}

/// Where everything stands.
struct Scene {
    Room room;
    Place device; ///< The microphone's.
    Place speakers;
    Place user;
    Place secondUser;

    explicit Scene(const Scenario &scenario)
        : room(scenario.reverberation, scenario.seed)
        , device(room.place(1))
        , speakers(room.beside(device, 0.35, 2))
        , user(room.beside(device, 0.7, 3))
        , secondUser(room.beside(device, 1.5, 4)) {}
};

Signal echoOf(const Signal &reference, const Scenario &scenario, const Hardship &hardship, const Scene &scene) {
    const auto &[room, device, speakers, user, secondUser] = scene;
    const auto played = playedBy(hardship.loudspeaker, reference, scenario.seed + 3);
    std::vector<Signal> responses;
    if (hardship.doesDeviceMove) {
        for (const auto &place : way(device, room.beside(device, 0.25, 5)))
            responses.push_back(room.response(speakers, place));
    } else {
        responses.push_back(room.response(speakers, device));
    }
    if (hardship.doesUserMove) {
        // A person is a wall that walks about: a reflection of another length, a quarter of the direct sound.
        const auto places = way(user, room.beside(user, 1.5, 6));
        const auto alone = responses.front();
        responses.clear();
        for (const auto &place : places) {
            auto response = alone;
            const double longer = std::hypot(place[0] - device[0], place[1] - device[1]) +
                                  std::hypot(place[0] - speakers[0], place[1] - speakers[1]);
            const auto at = samplesIn(longer / 343);
            if (at < response.size())
                response[at] += 0.15F;
            responses.push_back(std::move(response));
        }
    }
    const auto heard = responses.size() == 1 ? convolve(played, responses.front())
                                             : heardInMotion(played, responses, 8, scenario.seconds() - 3);
    const auto drift = drifted(heard, scenario.driftPpm);
    const auto late = static_cast<std::ptrdiff_t>(samplesIn(scenario.delayMs / 1000.0));
    Signal echo(drift.size());
    std::copy(drift.begin(), drift.end() - late, echo.begin() + late);
    setActiveLevel(echo, level);
    turn(echo, hardship.volumeStep);
    return echo;
}

/// Somebody's talk while both talk, as the microphone hears it.
Signal heardFrom(const Speaker::Talk &talk, const Scenario &scenario, const std::vector<Signal> &responses) {
    Signal all(samplesIn(scenario.seconds()));
    std::copy(talk.signal.begin(), talk.signal.end(),
              all.begin() + static_cast<std::ptrdiff_t>(samplesIn(scenario.farAlone)));
    auto heard = responses.size() == 1
                     ? convolve(all, responses.front())
                     : heardInMotion(all, responses, scenario.farAlone, scenario.farAlone + scenario.both);
    setActiveLevel(heard, level);
    return heard;
}

} // namespace

std::vector<Scenario> hardScenarios(std::uint32_t set, int count) {
    static constexpr std::array farVoices{Voice{"en-us+m4", 165}, Voice{"en-gb+f3", 160}, Voice{"en-us+f4", 170},
                                          Voice{"en-gb+m2", 165}, Voice{"en-us+m8", 160}};
    static constexpr std::array nearVoices{Voice{"en-us+f2", 150}, Voice{"en-us+m6", 150}, Voice{"en-gb+f5", 145},
                                           Voice{"en-gb+m3", 150}, Voice{"en-us+f5", 150}, Voice{"en-us+m1", 150}};
    static constexpr std::array delays{60, 110, 40, 160};
    std::vector<Scenario> all;
    const auto add = [&](const std::string &kind, const auto &change) {
        for (int i = 0; i < count; ++i) {
            Scenario scenario;
            const auto index = static_cast<std::uint32_t>(all.size()) + 11 * set;
            scenario.name = kind + ", " + std::to_string(i + 1);
            scenario.seed = 50000 + 1000 * set + index;
            scenario.farVoice = farVoices[index % farVoices.size()];
            scenario.nearVoice = nearVoices[index % nearVoices.size()];
            scenario.delayMs = delays[index % delays.size()];
            scenario.reverberation = 0.2 + 0.05 * (index % 4);
            scenario.noiseLevel = -66;
            scenario.hardship.emplace().kind = kind;
            change(scenario, *scenario.hardship, i % 2 == 0 ? 1 : -1);
            all.push_back(scenario);
        }
    };
    const auto louder = [&](double decibels) {
        return [decibels](Scenario &scenario, Hardship &, int) { scenario.signalToEcho = decibels; };
    };
    const auto reverberating = [&](double seconds) {
        return [seconds](Scenario &scenario, Hardship &, int) { scenario.reverberation = seconds; };
    };
    const auto by = [&](Loudspeaker loudspeaker) {
        return [loudspeaker](Scenario &, Hardship &hardship, int) { hardship.loudspeaker = loudspeaker; };
    };
    const auto drifting = [&](double partsPerMillion) {
        return
            [partsPerMillion](Scenario &scenario, Hardship &, int sign) { scenario.driftPpm = sign * partsPerMillion; };
    };
    const auto withMusic = [&](double dbfs) {
        return [dbfs](Scenario &, Hardship &hardship, int) { hardship.musicLevel = dbfs; };
    };
    add("plain rooms", louder(0));
    add("near end 6 dB softer", louder(-6));
    add("near end 12 dB softer", louder(-12));
    add("reverberation 0.5 s", reverberating(0.5));
    add("reverberation 0.8 s", reverberating(0.8));
    add("loudspeaker: soft clip", by(Loudspeaker::SoftClipping));
    add("loudspeaker: excursion", by(Loudspeaker::Excursion));
    add("loudspeaker: limiter", by(Loudspeaker::Limiter));
    add("loudspeaker: rattle", by(Loudspeaker::Rattling));
    add("volume turned by 10 dB", [](Scenario &, Hardship &hardship, int sign) { hardship.volumeStep = 10 * sign; });
    add("microphone gain changed by 10 dB",
        [](Scenario &, Hardship &hardship, int sign) { hardship.microphoneStep = 10 * sign; });
    add("automatic gain", [](Scenario &, Hardship &hardship, int) { hardship.hasAutomaticGain = true; });
    add("somebody moves", [](Scenario &, Hardship &hardship, int) { hardship.doesUserMove = true; });
    add("the device moves", [](Scenario &, Hardship &hardship, int) { hardship.doesDeviceMove = true; });
    add("music at -40 dBFS", withMusic(-40));
    add("music at -32 dBFS", withMusic(-32));
    add("two people", [](Scenario &, Hardship &hardship, int) { hardship.hasSecondUser = true; });
    add("clocks 60 ppm apart", drifting(60));
    add("clocks 200 ppm apart", drifting(200));
    return all;
}

Result<Recording> recordHardship(const Scenario &scenario, const Hardship &hardship, Talks talks, Speaker &speaker) {
    auto &[program, user] = talks;
    const Scene scene(scenario);
    Recording recording;
    recording.reference = std::move(program.signal);
    setActiveLevel(recording.reference, -20);
    recording.echo = echoOf(recording.reference, scenario, hardship, scene);

    std::vector<Signal> responses;
    const auto to = hardship.doesUserMove ? scene.room.beside(scene.user, 1.5, 6) : scene.user;
    for (const auto &place : way(scene.user, to)) {
        responses.push_back(scene.room.response(place, scene.device));
        if (!hardship.doesUserMove)
            break;
    }
    recording.nearEnd = heardFrom(user, scenario, responses);
    if (hardship.hasSecondUser) {
        auto second = speaker.talk({"en-gb+m5", 140}, userSentences(), scenario.seed + 5, scenario.both);
        if (!second)
            return Failure{second.reason()};
        recording.otherSentences = second->sentences;
        auto heard = heardFrom(*second, scenario, {scene.room.response(scene.secondUser, scene.device)});
        amplify(heard, -6);
        std::transform(heard.begin(), heard.end(), recording.nearEnd.begin(), recording.nearEnd.begin(), std::plus<>());
    }
    amplify(recording.nearEnd, scenario.signalToEcho);
    recording.nearSentences = std::move(user.sentences);

    Signal others(recording.reference.size());
    if (hardship.musicLevel)
        others = music(others.size(), *hardship.musicLevel, scenario.seed + 700);
    Noise noise(scenario.seed + 900);
    for (float &sample : others)
        sample += std::sqrt(3.0F) * gainOf(scenario.noiseLevel) * noise();

    Signal gains(others.size(), 1);
    if (hardship.hasAutomaticGain) {
        Signal all(others.size());
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = recording.nearEnd[i] + recording.echo[i] + others[i];
        gains = automaticGain(all, level);
    }
    turn(gains, hardship.microphoneStep);
    for (auto *signal : {&recording.nearEnd, &recording.echo, &others})
        std::transform(signal->begin(), signal->end(), gains.begin(), signal->begin(), std::multiplies<>());
    recording.microphone.resize(others.size());
    for (std::size_t i = 0; i < others.size(); ++i)
        recording.microphone[i] = std::clamp(recording.nearEnd[i] + recording.echo[i] + others[i], -1.0F, 1.0F);
    return recording;
}

} // namespace palomet::bench
