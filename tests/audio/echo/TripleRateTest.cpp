#include "audio/echo/TripleRate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

using palomet::echo::TripleRate;

namespace {

constexpr double pi = std::numbers::pi;

/// A second of a sine at 16 kHz, brought up.
std::vector<float> tripled(double frequency, int extraDelay) {
    TripleRate rate(extraDelay);
    std::vector<float> result;
    std::array<float, TripleRate::inputSize> in{};
    std::array<float, TripleRate::outputSize> out{};
    for (int frame = 0; frame < 100; ++frame) {
        for (int i = 0; i < TripleRate::inputSize; ++i)
            in[static_cast<std::size_t>(i)] =
                static_cast<float>(std::sin(2 * pi * frequency * (frame * TripleRate::inputSize + i) / 16000));
        rate.push(in);
        rate.read(out);
        result.insert(result.end(), out.begin(), out.end());
    }
    return result;
}

/// Amplitude of a frequency in the later half of a signal at 48 kHz.
double amplitude(const std::vector<float> &signal, double frequency) {
    double real = 0;
    double imaginary = 0;
    for (auto i = signal.size() / 2; i < signal.size(); ++i) {
        const double phase = 2 * pi * frequency * static_cast<double>(i) / 48000;
        real += static_cast<double>(signal[i]) * std::cos(phase);
        imaginary += static_cast<double>(signal[i]) * std::sin(phase);
    }
    return 4 * std::hypot(real, imaginary) / static_cast<double>(signal.size());
}

} // namespace

TEST(TripleRate, DelaysByWhatItSays) {
    for (const int extraDelay : {0, 1, 56, 64}) {
        const auto signal = tripled(440, extraDelay);
        const int delay = 3 * (TripleRate::filterDelay + extraDelay);
        for (int i = 1000; i < 48000; i += 7)
            ASSERT_NEAR(signal[static_cast<std::size_t>(i)], std::sin(2 * pi * 440 * (i - delay) / 48000), 2e-3);
    }
}

TEST(TripleRate, ShowsWhatItWouldGiveAtTheOldRate) {
    TripleRate rate(40);
    std::array<float, TripleRate::inputSize> in{};
    std::array<float, TripleRate::outputSize> out{};
    for (int frame = 0; frame < 20; ++frame) {
        for (std::size_t i = 0; i < in.size(); ++i)
            in[i] = static_cast<float>(std::sin(2 * pi * 440 * static_cast<double>(i) / 16000 + frame));
        rate.push(in);
        rate.read(out);
        for (std::size_t i = 0; i < in.size(); ++i)
            ASSERT_NEAR(rate.delayed()[i], out[3 * i], 2e-3);
    }
}

TEST(TripleRate, IsFlatToSevenKilohertz) {
    for (const double frequency : {50.0, 300.0, 1000.0, 4000.0, 6000.0, 7000.0})
        EXPECT_NEAR(20 * std::log10(amplitude(tripled(frequency, 0), frequency)), 0, 0.3) << frequency;
}

TEST(TripleRate, WhatItMirrorsIsSixtyDecibelsDown) {
    for (const double frequency : {300.0, 1000.0, 4000.0, 6500.0}) {
        const auto signal = tripled(frequency, 0);
        EXPECT_LT(20 * std::log10(amplitude(signal, 16000 - frequency)), -58) << frequency;
        EXPECT_LT(20 * std::log10(amplitude(signal, 16000 + frequency)), -58) << frequency;
    }
}

TEST(TripleRate, AConstantStaysConstant) {
    TripleRate rate(0);
    std::array<float, TripleRate::inputSize> in{};
    in.fill(0.5F);
    std::array<float, TripleRate::outputSize> out{};
    rate.push(in);
    rate.push(in);
    rate.read(out);
    for (const float sample : out)
        ASSERT_NEAR(sample, 0.5F, 1e-6);
}
