#include "audio/echo/EchoCanceller.h"

#include "bench/audio/echo/Signal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

using namespace palomet;
using bench::Noise;
using bench::Signal;
using bench::toDecibels;

namespace {

constexpr std::size_t frameSize = EchoCanceller::frameSize;
constexpr int delayMs = 60;

std::unique_ptr<EchoCanceller> make() {
    auto canceller = EchoCanceller::create();
    EXPECT_TRUE(canceller.isOk());
    return std::move(*canceller);
}

/// Noise that comes and goes like syllables do, in the band of a voice.
Signal speechLike(double seconds, std::uint32_t seed, float level) {
    Noise noise(seed);
    Signal signal(bench::samplesIn(seconds));
    float low = 0;
    float slow = 0;
    float swell = 0;
    float target = 0;
    for (std::size_t i = 0; i < signal.size(); ++i) {
        if (i % 6000 == 0)
            target = std::max(0.0F, noise() + 0.4F);
        swell += 0.002F * (target - swell);
        low += 0.2F * (noise() - low);
        slow += 0.01F * (low - slow);
        signal[i] = level * swell * (low - slow);
    }
    return signal;
}

/// A small room: the direct sound and a tail that falls off, all of it late by the delay.
Signal echoOf(const Signal &reference) {
    Noise noise(77);
    Signal response(bench::samplesIn(0.06 + delayMs / 1000.0));
    const auto direct = bench::samplesIn(delayMs / 1000.0);
    response[direct] = 0.4F;
    for (auto i = direct + 100; i < response.size(); ++i)
        response[i] = 0.02F * noise() * std::exp(-static_cast<float>(i - direct) / 800.0F);
    return bench::convolve(reference, response);
}

Signal sum(const Signal &a, const Signal &b) {
    Signal result(std::max(a.size(), b.size()));
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = (i < a.size() ? a[i] : 0) + (i < b.size() ? b[i] : 0);
    return result;
}

/// As long as the microphone; the reference is silence where it has ended.
Signal run(EchoCanceller &canceller, std::span<const float> reference, std::span<const float> microphone) {
    Signal output;
    EchoCanceller::Frame far{};
    EchoCanceller::Frame near{};
    EchoCanceller::Frame out{};
    for (std::size_t at = 0; at + frameSize <= microphone.size(); at += frameSize) {
        for (std::size_t i = 0; i < frameSize; ++i) {
            far[i] = at + i < reference.size() ? reference[at + i] : 0;
            near[i] = microphone[at + i];
        }
        canceller.render(far);
        canceller.capture(near, delayMs, out);
        output.insert(output.end(), out.begin(), out.end());
    }
    return output;
}

std::span<const float> part(const Signal &signal, double from, double to) {
    return std::span(signal).subspan(bench::samplesIn(from), bench::samplesIn(to) - bench::samplesIn(from));
}

double enhancement(const Signal &echo, const Signal &output, double from, double to) {
    return toDecibels(bench::meanSquare(part(echo, from, to)) / bench::meanSquare(part(output, from, to)));
}

} // namespace

TEST(EchoCanceller, SilenceStaysSilence) {
    const auto canceller = make();
    const auto output = run(*canceller, {}, Signal(bench::samplesIn(2)));
    EXPECT_LT(toDecibels(bench::meanSquare(output)), -80);
}

TEST(EchoCanceller, FindsTheEchoWithinThreeSeconds) {
    const auto canceller = make();
    const auto reference = speechLike(6, 1, 1);
    const auto echo = echoOf(reference);
    const auto output = run(*canceller, reference, echo);
    EXPECT_GT(enhancement(echo, output, 3, 6), 20);
}

TEST(EchoCanceller, LetsThroughWhatIsNoEcho) {
    const auto canceller = make();
    const auto voice = speechLike(4, 2, 1);
    const auto output = run(*canceller, {}, voice);
    EXPECT_NEAR(enhancement(voice, output, 1, 4), 0, 2);
}

TEST(EchoCanceller, TheSameInputGivesTheSameSamples) {
    const auto reference = speechLike(4, 3, 1);
    const auto microphone = sum(echoOf(reference), speechLike(4, 4, 0.3F));
    const auto first = make();
    const auto second = make();
    EXPECT_EQ(run(*first, reference, microphone), run(*second, reference, microphone));
}

TEST(EchoCanceller, InputAndOutputMayBeTheSameFrame) {
    const auto reference = speechLike(1, 5, 1);
    const auto microphone = echoOf(reference);
    const auto apart = make();
    const auto expected = run(*apart, reference, microphone);
    const auto together = make();
    EchoCanceller::Frame frame{};
    for (std::size_t at = 0; at + frameSize <= microphone.size(); at += frameSize) {
        std::copy_n(microphone.begin() + static_cast<std::ptrdiff_t>(at), frameSize, frame.begin());
        together->render(std::span(reference).subspan(at).first<frameSize>());
        together->capture(frame, delayMs, frame);
        ASSERT_TRUE(std::equal(frame.begin(), frame.end(), expected.begin() + static_cast<std::ptrdiff_t>(at)));
    }
}

TEST(EchoCanceller, FullScaleNoiseDoesNoHarmAndItRecovers) {
    const auto reference = speechLike(8, 11, 1);
    const auto echo = echoOf(reference);
    auto loudReference = reference;
    auto loudMicrophone = echo;
    Noise noise(12);
    for (std::size_t i = bench::samplesIn(2); i < bench::samplesIn(3); ++i) {
        loudReference[i] = noise() < 0 ? -1 : 1;
        loudMicrophone[i] = noise() < 0 ? -1 : 1;
    }
    const auto canceller = make();
    const auto output = run(*canceller, loudReference, loudMicrophone);
    EXPECT_TRUE(std::all_of(output.begin(), output.end(), [](float sample) { return std::abs(sample) < 2; }));
    EXPECT_GT(enhancement(echo, output, 6, 8), 20);
}

TEST(EchoCanceller, SpeakersOrAMicrophoneThatAreTurnedUpOrDownAreNotHeardAsSomebody) {
    const auto reference = speechLike(12, 21, 0.7F);
    for (const float turned : {3.16F, 0.316F}) {
        auto echo = echoOf(reference);
        for (std::size_t i = bench::samplesIn(6); i < echo.size(); ++i)
            echo[i] *= turned;
        const auto canceller = make();
        const auto output = run(*canceller, reference, echo);
        EXPECT_GT(enhancement(echo, output, 6.2, 8), 20) << turned;
        EXPECT_GT(enhancement(echo, output, 9, 12), 20) << turned;
    }
}

TEST(EchoCanceller, WhatTheServerTellsToBeTurnedIsNotHeardAsSomebodyFromTheFirstSampleOn) {
    if (!EchoCanceller::takesMask())
        GTEST_SKIP() << "this library has no linear output";
    const auto reference = speechLike(8, 24, 0.7F);
    for (const float turned : {4.0F, 0.25F}) {
        auto echo = echoOf(reference);
        const auto at = bench::samplesIn(6);
        for (std::size_t i = at; i < echo.size(); ++i)
            echo[i] *= turned;
        const auto canceller = make();
        const auto split = at - at % frameSize;
        run(*canceller, std::span(reference).first(split), std::span(echo).first(split));
        canceller->turned(turned);
        const auto rest = run(*canceller, std::span(reference).subspan(split), std::span(echo).subspan(split));
        EXPECT_GT(toDecibels(bench::meanSquare(part(echo, 6, 6.3)) / bench::meanSquare(part(rest, 0, 0.3))), 20)
            << turned;
    }
}

TEST(EchoCanceller, SomebodyIsAsLoudAsBeforeWhenTheSpeakersWereTurnedUpOrDown) {
    auto reference = speechLike(9, 22, 0.7F);
    std::fill(reference.begin() + static_cast<std::ptrdiff_t>(bench::samplesIn(7)), reference.end(), 0.0F);
    Signal voice(reference.size());
    const auto said = speechLike(1.2, 23, 1);
    std::copy(said.begin(), said.end(), voice.begin() + static_cast<std::ptrdiff_t>(bench::samplesIn(7.5)));
    for (const float turned : {2.0F, 0.5F}) {
        auto echo = echoOf(reference);
        for (std::size_t i = bench::samplesIn(6); i < echo.size(); ++i)
            echo[i] *= turned;
        const auto canceller = make();
        const auto output = run(*canceller, reference, sum(echo, voice));
        EXPECT_NEAR(enhancement(voice, output, 7.6, 8.6), 0, 2) << turned;
    }
}

TEST(EchoCanceller, AConstantOffsetIsTakenOut) {
    const auto reference = speechLike(6, 13, 1);
    const auto echo = echoOf(reference);
    auto microphone = echo;
    for (float &sample : microphone)
        sample += 0.2F;
    const auto canceller = make();
    const auto output = run(*canceller, reference, microphone);
    EXPECT_GT(enhancement(echo, output, 3, 6), 20);
}

TEST(EchoCanceller, AReferenceThatStopsLeavesTheNearEndAloneAndMayComeBack) {
    auto reference = speechLike(12, 14, 1);
    std::fill(reference.begin() + static_cast<std::ptrdiff_t>(bench::samplesIn(4)),
              reference.begin() + static_cast<std::ptrdiff_t>(bench::samplesIn(8)), 0.0F);
    const auto echo = echoOf(reference);
    Signal voice(echo.size());
    const auto said = speechLike(3, 15, 1);
    std::copy(said.begin(), said.end(), voice.begin() + static_cast<std::ptrdiff_t>(bench::samplesIn(4.5)));
    const auto canceller = make();
    const auto output = run(*canceller, reference, sum(echo, voice));
    EXPECT_NEAR(enhancement(voice, output, 4.5, 7.5), 0, 2);
    EXPECT_GT(enhancement(echo, output, 9, 12), 20);
}

TEST(EchoCanceller, AnyDelayHintIsTaken) {
    const auto canceller = make();
    EchoCanceller::Frame frame{};
    for (const int hint : {std::numeric_limits<int>::min(), -1, 0, 10000, std::numeric_limits<int>::max()}) {
        canceller->render(frame);
        canceller->capture(frame, hint, frame);
        EXPECT_TRUE(std::all_of(frame.begin(), frame.end(), [](float sample) { return std::abs(sample) < 0.01F; }));
    }
}
