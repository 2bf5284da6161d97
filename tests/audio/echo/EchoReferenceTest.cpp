#include "audio/echo/EchoReference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

using namespace palomet;
using namespace std::chrono_literals;

namespace {

constexpr int frameSize = EchoCanceller::frameSize;
constexpr int second = 100; // Frames.

std::vector<float> ramp(std::size_t count, float from = 1) {
    std::vector<float> samples(count);
    std::iota(samples.begin(), samples.end(), from);
    return samples;
}

EchoCanceller::Frame next(EchoReference &reference) {
    EchoCanceller::Frame frame;
    reference.read(frame);
    return frame;
}

float firstOfNext(EchoReference &reference) {
    return next(reference).front();
}

} // namespace

TEST(EchoReference, GivesWhatWasPlayedInItsOrderWhateverTheSizes) {
    EchoReference reference;
    const auto played = ramp(3 * frameSize);
    reference.write(std::span(played).first(1));
    reference.write(std::span(played).subspan(1, 1000));
    reference.write(std::span(played).subspan(1001));
    for (std::size_t frame = 0; frame < 3; ++frame)
        EXPECT_EQ(firstOfNext(reference), played[frame * frameSize]);
    EXPECT_EQ(reference.backlog(), 0);
}

TEST(EchoReference, IsSilenceWhileNothingIsPlayed) {
    EchoReference reference;
    EXPECT_TRUE(reference.isReady());
    EXPECT_EQ(firstOfNext(reference), 0);
}

TEST(EchoReference, IsNotWaitedForWithoutSpeakers) {
    EchoReference reference;
    for (int frame = 0; frame < 10 * second; ++frame) {
        EXPECT_EQ(reference.follow(frameSize, 0, 15ms), 15ms);
        EXPECT_TRUE(reference.isReady());
        EXPECT_EQ(firstOfNext(reference), 0);
    }
}

TEST(EchoReference, ALateFrameIsSilenceAndNothingOfItIsLostAtFirst) {
    EchoReference reference;
    reference.write(ramp(100));
    EXPECT_EQ(firstOfNext(reference), 0);
    reference.write(ramp(frameSize, 101));
    EXPECT_EQ(firstOfNext(reference), 1);
}

TEST(EchoReference, KeepsTheNewestSecondWhileTheMicrophoneIsClosed) {
    EchoReference reference;
    const auto played = ramp(200000);
    reference.write(played);
    const auto backlog = static_cast<std::size_t>(reference.backlog());
    EXPECT_GE(backlog, 48000U);
    EXPECT_EQ(firstOfNext(reference), played[200000 - backlog]);
}

TEST(EchoReference, TellsTheLeadWhichIsTheDelayLessTheAge) {
    EchoReference reference;
    reference.write(ramp(960));
    EXPECT_EQ(reference.follow(480, 0, 50ms), 30ms);
    EXPECT_EQ(reference.follow(480, 240, 50ms), 35ms);
    firstOfNext(reference);
    EXPECT_EQ(reference.follow(480, 0, 0ms), -10ms);
}

namespace {

/// Two streams that keep step, by callbacks of one frame.
struct BothStreams : testing::Test {
    EchoReference reference;
    std::chrono::microseconds delay = 30ms; ///< Of both streams together.
    std::int64_t unmatched = 0;
    bool isSilent = false;
    float played = 0;
    float last = 0; ///< Reference that was given.
    std::chrono::microseconds lead{};

    void play(int frames) {
        for (int frame = 0; frame < frames; ++frame)
            reference.write(std::vector<float>(frameSize, isSilent ? 0 : ++played));
    }
    /// A frame of the microphone comes; the references that it and those before it got.
    std::vector<float> hear() {
        lead = reference.follow(frameSize, static_cast<std::size_t>(unmatched), delay);
        unmatched += frameSize;
        std::vector<float> references;
        while (unmatched > 0 && (reference.isReady() || unmatched > 10 * frameSize)) {
            last = next(reference).back();
            references.push_back(last);
            unmatched -= frameSize;
        }
        return references;
    }
    void run(int frames) {
        for (int frame = 0; frame < frames; ++frame) {
            play(1);
            hear();
        }
    }
};

} // namespace

TEST_F(BothStreams, AfterTwoTenthsOfASecondTheReferenceComesTwentyMillisecondsBeforeItsEcho) {
    play(7);
    run(second / 5 - 1);
    EXPECT_EQ(lead, 30ms - 80ms);
    run(2);
    EXPECT_EQ(lead, 20ms);
    run(100 * second);
    EXPECT_EQ(lead, 20ms);
}

TEST_F(BothStreams, WhatIsHeardKeepsItsLeadThoughTheStreamsWereNotYetInStep) {
    run(second / 2);
    delay += 8ms;
    run(2 * second);
    EXPECT_EQ(lead, 28ms);
    run(100 * second);
    EXPECT_EQ(lead, 28ms);
}

TEST_F(BothStreams, WhatIsToldWhileTheStreamsOpenIsNotTakenForTheLead) {
    for (int frame = 0; frame < second / 5; ++frame) {
        delay = frame * 1ms;
        run(1);
    }
    delay = 30ms;
    run(second / 5 + 1);
    EXPECT_EQ(lead, 20ms);
}

TEST_F(BothStreams, BeforeTheFirstSoundTheLeadFollowsTheStreams) {
    isSilent = true;
    run(second / 2);
    delay += 8ms;
    run(second / 5 + 1);
    EXPECT_EQ(lead, 20ms);
}

TEST_F(BothStreams, ALeadThatIsFarOffIsMendedAfterTwoSecondsThoughSomethingIsHeard) {
    delay = 300ms;
    run(second);
    delay = 30ms;
    run(second);
    EXPECT_LT(lead, 0ms);
    run(1);
    EXPECT_EQ(lead, 20ms);
}

TEST_F(BothStreams, StreamsThatTakeLongLeaveHalfOfItToEachSide) {
    delay = 100ms;
    run(2 * second + 1);
    EXPECT_EQ(lead, 50ms);
}

TEST_F(BothStreams, StreamsThatTakeLittleLeaveAllOfItToTheLead) {
    delay = 12ms;
    run(2 * second + 1);
    EXPECT_EQ(lead, 12ms);
}

TEST_F(BothStreams, ALateFrameIsWaitedForAndComesWhole) {
    run(2 * second + 10);
    for (int frame = 0; frame < 5; ++frame)
        hear();
    const float before = last;
    play(6);
    const auto references = hear();
    ASSERT_GE(references.size(), 5U);
    EXPECT_EQ(references.front(), before + 1);
    EXPECT_EQ(references.back(), before + static_cast<float>(references.size()));
    run(1);
    EXPECT_EQ(lead, 20ms);
}

TEST_F(BothStreams, WhatComesTooLateIsPassedOverAndTheLeadStays) {
    run(2 * second + 10);
    int silent = 0;
    for (int frame = 0; frame < 40; ++frame) {
        for (const float first : hear())
            silent += first == 0 ? 1 : 0;
    }
    EXPECT_GT(silent, 20);
    play(40); // catches up
    run(1);
    EXPECT_EQ(lead, 20ms);
}

TEST_F(BothStreams, AFrameThatHasOnlyBegunIsGivenAsFarAsItGoes) {
    run(2 * second + 10);
    while (reference.isReady())
        next(reference);
    const auto begun = static_cast<std::size_t>(reference.backlog());
    reference.write(std::vector<float>(100, -7));
    const auto frame = next(reference);
    EXPECT_EQ(frame[begun], -7);
    EXPECT_EQ(frame[begun + 99], -7);
    EXPECT_EQ(frame[begun + 100], 0);
}

TEST_F(BothStreams, AStreamThatStoodStillIsMatchedAnew) {
    run(2 * second + 10);
    for (int frame = 0; frame < 150; ++frame)
        hear();
    EXPECT_TRUE(reference.isReady());
    run(3 * second);
    EXPECT_EQ(lead, 20ms);
    EXPECT_GT(last, 0);
}

TEST_F(BothStreams, ALatencyThatIsToldDifferentlyNowAndThenChangesNothing) {
    run(2 * second + 1);
    const float before = played - last;
    for (int frame = 0; frame < 100 * second; ++frame) {
        delay = frame % 2 == 0 ? 26ms : 34ms;
        run(1);
    }
    delay = 30ms;
    run(1);
    EXPECT_EQ(lead, 20ms);
    EXPECT_EQ(played - last, before);
}

namespace {

/// A sine whose every sample tells its position, played by a clock of its own.
void keepsStepWithAClockThatIsApartBy(double partsPerMillion) {
    EchoReference reference;
    double due = 0;
    std::int64_t written = 0;
    std::int64_t unmatched = 0;
    const auto value = [](double position) { return static_cast<float>(std::sin(position * 0.05)); };
    double longest = 0;
    double shortest = 1e9;
    float roughest = 0;
    for (int frame = 0; frame < 150 * second; ++frame) {
        std::vector<float> played;
        for (due += frameSize * (1 + partsPerMillion * 1e-6); written < static_cast<std::int64_t>(due); ++written)
            played.push_back(value(static_cast<double>(written)));
        reference.write(played);
        const auto lead = reference.follow(frameSize, static_cast<std::size_t>(unmatched), 40ms);
        unmatched += frameSize;
        while (reference.isReady() && unmatched > 0) {
            unmatched -= frameSize;
            const auto samples = next(reference);
            if (frame < 3 * second)
                continue;
            for (std::size_t i = 2; i < samples.size(); ++i) // what is no sine has another curvature
                roughest = std::max(
                    roughest, std::abs(samples[i] - 2 * samples[i - 1] + samples[i - 2] + 0.0025F * samples[i - 1]));
        }
        if (frame > 3 * second) {
            longest = std::max(longest, static_cast<double>(lead.count()));
            shortest = std::min(shortest, static_cast<double>(lead.count()));
        }
        ASSERT_LE(unmatched, 3 * frameSize);
    }
    EXPECT_LT(longest, 20'000 + 4'000);
    EXPECT_GT(shortest, 20'000 - 4'000);
    EXPECT_LT(roughest, 2e-3F);
}

} // namespace

TEST(EchoReference, KeepsStepWithSpeakersWhoseClockIsFaster) {
    keepsStepWithAClockThatIsApartBy(200);
}

TEST(EchoReference, KeepsStepWithSpeakersWhoseClockIsSlower) {
    keepsStepWithAClockThatIsApartBy(-200);
}
