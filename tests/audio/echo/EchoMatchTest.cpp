#include "audio/echo/EchoMatch.h"

#include "bench/audio/echo/Signal.h"

#include <gtest/gtest.h>

#include <array>

using palomet::bench::Noise;
using palomet::echo::EchoMatch;

namespace {

using Frame = std::array<float, 160>;

/// What a filter is given and what it leaves: it expects the echo at its usual loudness.
struct Room {
    EchoMatch match;
    Noise far{1};
    Noise near{2};
    float echoLevel = 0.1F;
    float nearLevel = 0;
    float loudness = 1; ///< Of the echo, beside what is expected.

    void hear(int frames) {
        for (int frame = 0; frame < frames; ++frame) {
            Frame microphone{};
            Frame linear{};
            for (std::size_t i = 0; i < microphone.size(); ++i) {
                const float expected = echoLevel * far();
                microphone[i] = loudness * expected + nearLevel * near() + 0.001F * near();
                linear[i] = microphone[i] - expected;
            }
            match.take(microphone, linear);
        }
    }
    int framesUntilMismatch() {
        for (int frames = 1; frames < 100; ++frames) {
            hear(1);
            if (match.mismatch() != 1)
                return frames;
        }
        return -1;
    }
};

} // namespace

TEST(EchoMatch, AnEchoThatIsAsExpectedIsNoMismatch) {
    Room room;
    EXPECT_EQ(room.framesUntilMismatch(), -1);
    EXPECT_LT(room.match.likeness(), 0.2F);
}

TEST(EchoMatch, TellsWithinThreeFramesByHowMuchTheEchoIsLouderOrSofter) {
    for (const float loudness : {3.16F, 0.316F, 1.5F, 0.67F}) {
        Room room;
        room.hear(100);
        room.loudness = loudness;
        EXPECT_LE(room.framesUntilMismatch(), 3) << loudness;
        room.hear(5);
        EXPECT_NEAR(room.match.mismatch() / loudness, 1, 0.1) << loudness;
        EXPECT_GT(room.match.likeness(), 0.9F) << loudness;
    }
}

TEST(EchoMatch, SomebodyWhoTalksIsNoMismatch) {
    for (const float nearLevel : {0.05F, 0.1F, 0.3F}) {
        Room room;
        room.nearLevel = nearLevel;
        EXPECT_EQ(room.framesUntilMismatch(), -1) << nearLevel;
        EXPECT_LT(room.match.likeness(), 0.2F) << nearLevel;
    }
}

TEST(EchoMatch, AMismatchIsKnownAlsoWhileSomebodyTalksMoreSoftly) {
    Room room;
    room.nearLevel = 0.05F;
    room.hear(100);
    room.loudness = 3.16F;
    EXPECT_GT(room.framesUntilMismatch(), 0);
    EXPECT_NEAR(room.match.mismatch(), 3.16F, 0.5F);
}

TEST(EchoMatch, SaysNothingWhereNoEchoIsExpected) {
    Room room;
    room.echoLevel = 0;
    room.nearLevel = 0.3F;
    EXPECT_EQ(room.framesUntilMismatch(), -1);
    EXPECT_EQ(room.match.likeness(), 0);
}

TEST(EchoMatch, WhatWasSeenBeforeARestartIsForgotten) {
    Room room;
    room.loudness = 3.16F;
    room.hear(10);
    ASSERT_NE(room.match.mismatch(), 1);
    room.match.restart();
    EXPECT_EQ(room.match.mismatch(), 1);
    room.loudness = 1;
    EXPECT_EQ(room.framesUntilMismatch(), -1);
}
