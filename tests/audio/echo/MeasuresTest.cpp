#include "bench/audio/echo/Measures.h"

#include "audio/echo/MaskWeights.h"
#include "bench/audio/echo/Path.h"
#include "bench/audio/echo/Room.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

using namespace palomet;
using namespace palomet::bench;

// What is measured of a canceller, and not what the measure or the rooms do themselves.

namespace {

/// A few seconds of it.
Scenario shortened(Scenario scenario) {
    scenario.farAlone = 1;
    scenario.both = 6;
    scenario.farAgain = 4;
    return scenario;
}

std::unique_ptr<EchoCanceller> masked() {
    const auto mask = echo::MaskWeights::read(QStringLiteral(PALOMET_SOURCE_DIR "/resources"));
    auto canceller = EchoCanceller::create(mask ? *mask : nullptr);
    return canceller ? std::move(*canceller) : nullptr;
}

void expectNothingLost(const std::vector<Scenario> &chosen) {
    Speaker speaker;
    for (const auto &one : chosen) {
        const auto scenario = shortened(one);
        auto made = record(scenario, speaker);
        ASSERT_TRUE(made.isOk()) << made.reason().toStdString();
        const auto recording = nearEndAlone(std::move(*made));
        EXPECT_LT(measure(recording, scenario, process(recording, scenario, masked().get())).lostPercent, 0.5)
            << scenario.name;
        EXPECT_LT(measure(recording, scenario, processOnPath(recording, scenario, masked())).lostPercent, 0.5)
            << scenario.name << ", on the path";
    }
}

/// Of a response, at a frequency in hertz.
double gainOf(const Signal &response, double frequency) {
    std::complex<double> sum;
    for (std::size_t i = 0; i < response.size(); ++i)
        sum += static_cast<double>(response[i]) *
               std::polar(1.0, -2 * std::numbers::pi * frequency * static_cast<double>(i) / sampleRate);
    return std::abs(sum);
}

} // namespace

TEST(EchoMeasures, NothingIsLostOfWhoTalksWhereThereIsNoEcho) {
    std::vector<Scenario> chosen{scenarios(1).front()};
    for (const auto &scenario : hardScenarios(1, 1)) {
        const auto &kind = scenario.hardship->kind;
        if (kind == "plain rooms" || kind == "near end 12 dB softer" || kind == "reverberation 0.8 s" ||
            kind == "somebody moves")
            chosen.push_back(scenario);
    }
    ASSERT_EQ(chosen.size(), 5);
    expectNothingLost(chosen);
}

TEST(EchoMeasures, WhatComesOutMoreThanTenDecibelsSofterIsLost) {
    const auto scenario = shortened(hardScenarios(1, 1).front());
    Speaker speaker;
    auto made = record(scenario, speaker);
    ASSERT_TRUE(made.isOk()) << made.reason().toStdString();
    const auto recording = nearEndAlone(std::move(*made));
    const auto lostAt = [&](double decibels) {
        auto softer = process(recording, scenario, nullptr);
        for (float &sample : softer.samples)
            sample *= static_cast<float>(std::pow(10, -decibels / 20));
        return measure(recording, scenario, softer).lostPercent;
    };
    EXPECT_EQ(lostAt(9.5), 0);
    EXPECT_EQ(lostAt(10.5), 100);
}

TEST(EchoMeasures, ARoomAddsNothingBelowEveryVoice) {
    const Room room(0.5, 7);
    const auto device = room.place(1);
    const auto response = room.response(room.beside(device, 0.7, 3), device);
    double voice = 0;
    for (double frequency = 200; frequency < 1200; frequency += 10)
        voice = std::max(voice, gainOf(response, frequency));
    EXPECT_LT(gainOf(response, 0), 0.01 * voice);
    EXPECT_LT(gainOf(response, 5), 0.1 * voice);
}
