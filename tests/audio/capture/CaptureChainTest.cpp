#include "audio/capture/CaptureChain.h"

#include "audio/echo/EchoReference.h"
#include "audio/echo/Interpolator.h"
#include "tests/support/FakeEchoCanceller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>

using namespace palomet;
using namespace std::chrono_literals;
using testing::Each;

namespace {

struct CaptureChainTest : testing::Test {
    test::EchoCancellerCalls calls;
    EchoReference reference;
    std::vector<std::vector<std::int16_t>> chunks;
    CaptureChain chain{std::make_unique<test::FakeEchoCanceller>(calls),
                       [this](PcmSamples samples) { chunks.emplace_back(samples.begin(), samples.end()); }};

    void capture(std::size_t count, std::size_t callbackSize, std::chrono::microseconds delay = 40ms) {
        std::vector<float> samples(count);
        for (std::size_t i = 0; i < count; ++i)
            samples[i] = 0.5F * static_cast<float>(std::sin(0.01 * static_cast<double>(m_time + i)));
        m_time += count;
        for (std::size_t at = 0; at < count; at += callbackSize)
            chain.captured(std::span(samples).subspan(at, std::min(callbackSize, count - at)), delay, reference);
    }

private:
    std::size_t m_time = 0;
};

constexpr auto infinity = std::numeric_limits<float>::infinity();
constexpr auto notANumber = std::numeric_limits<float>::quiet_NaN();

double addSquare(double sum, float sample) {
    return sum + static_cast<double>(sample) * static_cast<double>(sample);
}

/// Noise, the same every time.
std::vector<float> recorded(std::size_t count, std::uint32_t seed) {
    std::vector<float> samples(count);
    for (float &sample : samples) {
        seed = seed * 1664525 + 1013904223;
        sample = 0.2F * (static_cast<float>(seed >> 8) / static_cast<float>(1 << 23) - 1);
    }
    return samples;
}

/// What our canceller makes of a recording whose two halves came in pieces of these sizes, one after the other.
std::vector<std::int16_t> freed(const std::vector<float> &played, std::size_t playedSize,
                                const std::vector<float> &microphone, std::size_t microphoneSize) {
    std::vector<std::int16_t> freed;
    auto canceller = EchoCanceller::create();
    EXPECT_TRUE(canceller.isOk());
    EchoReference reference;
    CaptureChain chain(std::move(*canceller),
                       [&](PcmSamples samples) { freed.insert(freed.end(), samples.begin(), samples.end()); });
    const auto piece = [](const std::vector<float> &samples, std::size_t at, std::size_t size) {
        const auto begin = std::min(at, samples.size());
        return std::span(samples).subspan(begin, std::min(size, samples.size() - begin));
    };
    for (std::size_t i = 0; i * microphoneSize < microphone.size(); ++i) {
        reference.write(piece(played, i * playedSize, playedSize));
        chain.captured(piece(microphone, i * microphoneSize, microphoneSize), 20ms, reference);
    }
    return freed;
}

/// Noise in syllables, as dark as speech is.
std::vector<float> syllables(std::size_t count) {
    auto samples = recorded(count, 1);
    const auto loudness = recorded(count / 4800 + 1, 3);
    for (std::size_t i = 1; i < count; ++i)
        samples[i] = 0.85F * samples[i - 1] + 3 * samples[i] * std::max(0.0F, loudness[i / 4800]);
    return samples;
}

/// By how many decibels an echo is softer after a minute and a half with speakers whose clock is so much faster than
/// the microphone's.
double enhancementWithSpeakersFasterBy(double factor) {
    constexpr int frames = 9000;
    constexpr int measuredFrom = 7500;
    constexpr double delay = 40 * 48; // from the moment a sample is asked for
    const auto speech = syllables(frames * 485);
    const Interpolator interpolator;
    auto canceller = EchoCanceller::create();
    EXPECT_TRUE(canceller.isOk());
    EchoReference reference;
    int frame = 0;
    double echo = 0;
    double left = 0;
    CaptureChain chain(std::move(*canceller), [&](PcmSamples samples) {
        for (const auto sample : samples)
            left += frame >= measuredFrom ? 3 * std::pow(sample / 32768.0, 2) : 0; // a third as many as went in
    });
    for (std::size_t asked = 0; frame < frames; ++frame) {
        const auto due = static_cast<std::size_t>((frame + 1) * 480 * factor);
        reference.write(std::span(speech).subspan(asked, due - asked));
        asked = due;
        std::array<float, 480> microphone{};
        for (std::size_t i = 0; i < microphone.size(); ++i) {
            const double at = (frame * 480 + static_cast<double>(i)) * factor - delay;
            if (at < Interpolator::taps)
                continue;
            const auto whole = static_cast<std::size_t>(at);
            const auto around = std::span(speech).subspan(whole - Interpolator::before).first<Interpolator::taps>();
            microphone[i] = 0.5F * interpolator.between(around, at - static_cast<double>(whole));
            echo += frame >= measuredFrom ? std::pow(microphone[i], 2) : 0;
        }
        chain.captured(microphone, 40ms, reference);
    }
    return 10 * std::log10(echo / left);
}

} // namespace

TEST_F(CaptureChainTest, GivesChunksOf682And684BytesSixteenThousandSamplesASecond) {
    capture(15 * 48000, 1024);
    std::size_t samples = 0;
    for (const auto &chunk : chunks) {
        EXPECT_TRUE(chunk.size() == 341 || chunk.size() == 342) << chunk.size();
        samples += chunk.size();
    }
    ASSERT_GE(chunks.size(), 3U);
    EXPECT_EQ(chunks[0].size(), 342U);
    EXPECT_EQ(chunks[1].size(), 341U);
    EXPECT_EQ(chunks[2].size(), 341U);
    // Less than a whole tap buffer is still inside.
    EXPECT_EQ(samples, (15 * 48000 / 1024 * 1024 + 2) / 3);
}

TEST_F(CaptureChainTest, GivesTheSameChunksWhateverTheServerDelivers) {
    capture(48000, 1024);
    const auto expected = chunks;
    for (const std::size_t size : {1U, 7U, 479U, 480U, 481U, 1023U, 2047U, 9999U, 48000U}) {
        std::vector<std::vector<std::int16_t>> again;
        CaptureChain other(std::make_unique<test::FakeEchoCanceller>(calls),
                           [&](PcmSamples samples) { again.emplace_back(samples.begin(), samples.end()); });
        std::vector<float> samples(48000);
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = 0.5F * static_cast<float>(std::sin(0.01 * static_cast<double>(i)));
        for (std::size_t at = 0; at < samples.size(); at += size)
            other.captured(std::span(samples).subspan(at, std::min(size, samples.size() - at)), 0us, reference);
        EXPECT_EQ(again, expected) << size;
    }
}

TEST_F(CaptureChainTest, GivesTheCancellerOneReferenceAFrameSilenceIncluded) {
    capture(480, 480);
    const std::vector<float> played(960, 0.25F);
    reference.write(played);
    capture(3 * 480, 160);
    ASSERT_EQ(calls.references.size(), 4U);
    EXPECT_EQ(calls.delayHints.size(), 4U);
    EXPECT_EQ(calls.references[0], std::vector<float>(480, 0.0F));
    EXPECT_EQ(calls.references[1], std::vector<float>(480, 0.25F));
    EXPECT_EQ(calls.references[2], std::vector<float>(480, 0.25F));
    EXPECT_EQ(calls.references[3], std::vector<float>(480, 0.0F));
}

TEST_F(CaptureChainTest, BeginsWithoutWhatWasPlayedBefore) {
    const std::vector<float> played(4800, 0.25F);
    reference.write(played);
    capture(480, 480);
    EXPECT_EQ(calls.references.at(0), std::vector<float>(480, 0.0F));
}

TEST_F(CaptureChainTest, ExpectsTheEchoByTheDelayLessTheAgeOfTheReference) {
    capture(0, 1);
    capture(240, 240, 40ms); // half a frame, and begun 5 ms before what follows
    reference.write(std::vector<float>(960, 0.25F));
    capture(240, 240, 40ms);
    EXPECT_EQ(calls.delayHints, std::vector<int>{40 + 5 - 20});
    capture(480, 480, 0ms);
    EXPECT_EQ(calls.delayHints.back(), 0);
}

TEST_F(CaptureChainTest, AFrameWaitsForItsReferenceForATenthOfASecond) {
    const auto play = [&](float value) { reference.write(std::vector<float>(480, value)); };
    capture(480, 480);
    for (int frame = 0; frame < 210; ++frame) {
        play(0.25F);
        capture(480, 480);
    }
    // The rest has been used up.
    while (calls.references.size() > 200 && reference.backlog() >= 480)
        capture(480, 480);
    const auto matched = calls.references.size();
    capture(5 * 480, 480);
    EXPECT_EQ(calls.references.size(), matched);
    for (int frame = 0; frame < 5; ++frame)
        play(0.75F);
    capture(480, 480);
    EXPECT_EQ(calls.references.size(), matched + 5);
    EXPECT_EQ(calls.references.back()[479], 0.75F);
    // Nothing comes any more: what waits longest goes on with silence.
    capture(12 * 480, 480);
    EXPECT_EQ(calls.references.size(), matched + 5 + 13 - CaptureChain::mostWaiting);
    EXPECT_EQ(calls.references.back()[479], 0.0F);
    // In the end nothing waits.
    capture(200 * 480, 480);
    EXPECT_EQ(calls.references.size(), matched + 5 + 13 + 200);
}

TEST_F(CaptureChainTest, DoesNotLetASampleThatIsNoNumberIntoTheCanceller) {
    std::vector<float> samples(1024 + 480, notANumber);
    samples[5] = infinity;
    chain.captured(samples, 0us, reference);
    ASSERT_EQ(chunks.size(), 1U);
    EXPECT_EQ(chunks[0], std::vector<std::int16_t>(342, 0));
    EXPECT_THAT(calls.microphones, Each(std::vector<float>(480, 0)));
}

TEST_F(CaptureChainTest, CleansTheReferenceAsItDoesTheMicrophone) {
    capture(480, 480);
    const auto badFrame = [](float first) {
        std::vector<float> frame(480, first);
        std::copy_n(std::array{1.5F, -1e38F, infinity, -infinity, notANumber, 1.0F, -1.0F, 0.25F}.begin(), 8,
                    frame.begin());
        return frame;
    };
    const auto cleanFrame = [](float first) {
        std::vector<float> frame(480, first);
        std::copy_n(std::array{1.0F, -1.0F, 0.0F, 0.0F, 0.0F, 1.0F, -1.0F, 0.25F}.begin(), 8, frame.begin());
        return frame;
    };
    reference.write(badFrame(0.5F));
    chain.captured(badFrame(0.75F), 0us, reference);
    EXPECT_EQ(calls.references.at(1), cleanFrame(0.5F));
    EXPECT_EQ(calls.microphones.at(1), cleanFrame(0.75F));
}

TEST_F(CaptureChainTest, WhatIsNotANumberNeverComesOutAndTheCancellerRecovers) {
    auto played = syllables(7 * 48000);
    std::vector<float> microphone(played.size());
    std::transform(played.begin(), played.end() - 1920, microphone.begin() + 1920, [](float echo) { return echo / 2; });
    const auto echo = std::accumulate(microphone.end() - 2 * 48000, microphone.end(), 0.0, addSquare);
    for (std::size_t i = 2 * 48000; i < 2.5 * 48000; ++i) {
        played[i] = i % 2 == 0 ? notANumber : infinity;
        microphone[i] = i % 3 == 0 ? notANumber : i % 3 == 1 ? 1e38F : -infinity;
    }
    const auto output = freed(played, 480, microphone, 480);
    EXPECT_LT(*std::max_element(output.begin(), output.end()), 32767); // A sample that is not a number would be that.
    const auto left = 3 * std::accumulate(output.end() - 2 * 16000, output.end(), 0.0,
                                          [](double sum, float sample) { return addSquare(sum, sample / 32768); });
    EXPECT_GT(10 * std::log10(echo / left), 20);
}

TEST_F(CaptureChainTest, WhatIsNotANumberIsForgottenAlsoWhileNothingIsPlayed) {
    std::vector<float> microphone(4 * 48000, notANumber);
    const auto heard = recorded(microphone.size(), 2);
    std::copy(heard.begin(), heard.begin() + 3 * 48000, microphone.begin());
    std::copy(heard.end() - 48000 / 2, heard.end(), microphone.end() - 48000 / 2);
    const auto output = freed({}, 480, microphone, 480);
    const auto last = std::span(output).last(4800);
    EXPECT_LT(*std::max_element(last.begin(), last.end()), 32767);
    EXPECT_GT(*std::max_element(last.begin(), last.end()), 1000);
}

TEST_F(CaptureChainTest, ARecordedPairOfReferenceAndMicrophoneGivesTheSameSamplesEveryTime) {
    const auto played = recorded(3 * 48000, 1);
    auto microphone = recorded(3 * 48000, 2);
    for (std::size_t i = 1000; i < microphone.size(); ++i)
        microphone[i] += 0.5F * played[i - 1000];
    const auto first = freed(played, 480, microphone, 480);
    EXPECT_EQ(freed(played, 480, microphone, 480), first);
    EXPECT_EQ(first.size(), (3 * 48000 / 1024 * 1024 + 2) / 3);
}

TEST_F(CaptureChainTest, SpeakersOnAClockOfTheirOwnAreStillCancelled) {
    EXPECT_GT(enhancementWithSpeakersFasterBy(1 + 200e-6), 40);
    EXPECT_GT(enhancementWithSpeakersFasterBy(1 - 200e-6), 40);
}

TEST_F(CaptureChainTest, AReferenceLongerOrShorterThanTheMicrophoneCostsNoSample) {
    const auto played = recorded(48000, 1);
    const auto microphone = recorded(2 * 48000, 2);
    const std::size_t all = (2 * 48000 / 1024 * 1024 + 2) / 3;
    // At the end up to ten frames wait for a reference that is late.
    const auto allButWhatWaits = testing::AllOf(testing::Ge(all - 11 * 160), testing::Le(all));
    EXPECT_EQ(freed({}, 480, microphone, 480).size(), all);
    EXPECT_THAT(freed(played, 480, microphone, 480).size(), allButWhatWaits);  // ends half-way
    EXPECT_THAT(freed(played, 240, microphone, 480).size(), allButWhatWaits);  // comes half as fast
    EXPECT_THAT(freed(played, 1920, microphone, 960).size(), allButWhatWaits); // twice as fast
    EXPECT_THAT(freed(played, 441, microphone, 480).size(), allButWhatWaits);  // by another clock
}
