#include "audio/EchoReference.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace palomet;

namespace {

constexpr int frameSize = EchoCanceller::frameSize;

std::vector<float> ramp(std::size_t count, float from = 1) {
    std::vector<float> samples(count);
    std::iota(samples.begin(), samples.end(), from);
    return samples;
}

float firstOfNext(EchoReference &reference) {
    EchoCanceller::Frame frame;
    reference.read(frame);
    return frame.front();
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
    EXPECT_EQ(firstOfNext(reference), 0);
}

TEST(EchoReference, ALateFrameIsSilenceAndNothingOfItIsLost) {
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
    EXPECT_EQ(reference.backlog(), 65536);
    EXPECT_EQ(firstOfNext(reference), played[200000 - 65536]);
}

TEST(EchoReference, GivesBackAgeThatNobodyNeededWhereItsEchoIsNear) {
    EchoReference reference;
    const auto run = [&](int frames) {
        for (int frame = 0; frame < frames; ++frame) {
            reference.write(ramp(frameSize));
            firstOfNext(reference);
            reference.settle(1, 19);
        }
    };
    reference.write(ramp(5 * frameSize));
    run(99);
    EXPECT_EQ(reference.backlog(), 5 * frameSize);
    run(1);
    EXPECT_EQ(reference.backlog(), 0);
    // Later on more patience is due.
    reference.write(ramp(3 * frameSize + 7));
    run(999);
    EXPECT_EQ(reference.backlog(), 3 * frameSize + 7);
    run(1);
    EXPECT_EQ(reference.backlog(), 7);
}

TEST(EchoReference, KeepsTheFrameThatOneLateCallbackBroughtIn) {
    EchoReference reference;
    reference.write(ramp(2 * frameSize - 1));
    for (int frame = 0; frame < 5000; ++frame) {
        reference.write(ramp(frameSize));
        firstOfNext(reference);
        reference.settle(1, 0);
    }
    EXPECT_EQ(reference.backlog(), 2 * frameSize - 1);
}

TEST(EchoReference, KeepsTheAgeThatTheCallbacksNeed) {
    EchoReference reference;
    // The speakers ask for four frames at once, the microphone brings one at a time.
    for (int round = 0; round < 1000; ++round) {
        reference.write(ramp(4 * frameSize));
        for (int frame = 0; frame < 4; ++frame) {
            EXPECT_EQ(firstOfNext(reference), static_cast<float>(1 + frame * frameSize));
            reference.settle(1, 0);
        }
    }
}

TEST(EchoReference, IsOlderFromTheFirstSecondOnByHalfOfWhatItsEchoTakes) {
    EchoReference reference;
    const auto run = [&](int frames, int delayMs) {
        for (int frame = 0; frame < frames; ++frame) {
            reference.write(ramp(frameSize));
            firstOfNext(reference);
            reference.settle(1, delayMs);
        }
    };
    run(99, 75);
    EXPECT_EQ(reference.backlog(), 0);
    run(1, 75);
    EXPECT_EQ(reference.backlog(), 3 * frameSize);
    // Three frames may be late now, and the echo comes when it came before.
    for (int frame = 0; frame < 3; ++frame)
        EXPECT_EQ(firstOfNext(reference), 1);
    reference.write(ramp(3 * frameSize));
    run(5000, 45);
    EXPECT_EQ(reference.backlog(), 3 * frameSize);
    reference.clear();
    run(100, 75);
    EXPECT_EQ(reference.backlog(), 3 * frameSize);
}

struct BusyMachine : testing::Test {
    EchoReference reference;
    float played = 0;

    void play(int frames) {
        for (int frame = 0; frame < frames; ++frame)
            reference.write(std::vector<float>(frameSize, ++played));
    }
    float hear() {
        const float heard = firstOfNext(reference);
        reference.settle(1, 30);
        return heard;
    }
    /// Both streams keep step for so many frames.
    void run(int frames) {
        for (int frame = 0; frame < frames; ++frame) {
            play(1);
            hear();
        }
    }
};

TEST_F(BusyMachine, WhatComesTooLateIsPassedOverAndTheAgeStays) {
    run(100);
    EXPECT_EQ(reference.backlog(), frameSize);
    EXPECT_EQ(hear(), 100);
    for (int frame = 0; frame < 20; ++frame)
        EXPECT_EQ(hear(), 0);
    EXPECT_EQ(reference.backlog(), -20 * frameSize);
    play(21); // catches up
    EXPECT_EQ(reference.backlog(), frameSize);
    EXPECT_EQ(hear(), 121);
}

TEST_F(BusyMachine, AFrameThatHasOnlyBegunIsGivenAsFarAsItGoes) {
    run(100);
    hear();
    reference.write(std::vector<float>(100, 7));
    EchoCanceller::Frame frame;
    reference.read(frame);
    EXPECT_EQ(frame[99], 7);
    EXPECT_EQ(frame[100], 0);
}

TEST_F(BusyMachine, AStreamThatStoodStillIsMatchedAnew) {
    run(100);
    for (int frame = 0; frame < 150; ++frame)
        hear();
    run(200);
    EXPECT_GE(reference.backlog(), 0);
    play(1);
    EXPECT_GT(hear(), 0);
}

TEST_F(BusyMachine, CallbacksThatAreAlwaysLateMakeTheReferenceOlderInTheEnd) {
    run(100);
    // From now on the speakers ask for four frames at once, and the microphone comes first.
    const auto late = [&] {
        int count = 0;
        for (int round = 0; round < 250; ++round) {
            for (int frame = 0; frame < 4; ++frame)
                count += hear() == 0 ? 1 : 0;
            play(4);
        }
        return count;
    };
    EXPECT_GT(late(), 400);
    for (int tenSeconds = 0; tenSeconds < 4; ++tenSeconds)
        late();
    EXPECT_EQ(late(), 0);
}
