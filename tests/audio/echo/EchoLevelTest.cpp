#include "audio/echo/EchoLevel.h"

#include "bench/audio/echo/Signal.h"

#include <gtest/gtest.h>

#include <array>

using palomet::EchoCanceller;
using palomet::bench::Noise;
using palomet::echo::EchoLevel;

namespace {

/// A filter that expects the echo at its usual loudness, and learns nothing.
struct Room {
    EchoLevel level;
    Noise far{1};
    Noise near{2};
    float loudness = 1; ///< Of the echo, beside what was learned.
    float echoLevel = 0.1F;

    void hear(int frames) {
        for (int frame = 0; frame < frames; ++frame) {
            EchoCanceller::Frame whole{};
            level.lower(whole);
            std::array<float, 160> microphone{};
            std::array<float, 160> linear{};
            for (std::size_t i = 0; i < microphone.size(); ++i) {
                const float expected = echoLevel * far();
                microphone[i] = (loudness * expected + 0.001F * near()) / level.lowered();
                linear[i] = microphone[i] - expected;
            }
            level.follow(microphone, linear, echoLevel > 0);
        }
    }
};

} // namespace

TEST(EchoLevel, TakesWhatItIsToldAsSoonAsTheEchoBearsItOut) {
    Room room;
    room.hear(100);
    room.level.turned(4);
    room.hear(5);
    EXPECT_EQ(room.level.lowered(), 1);
    room.loudness = 4;
    room.hear(4);
    EXPECT_NEAR(room.level.lowered(), 4, 0.04);
}

TEST(EchoLevel, TakesWhatItIsToldWhenTheEchoHasSoundedForSoLongAndCannotTell) {
    Room room;
    room.hear(100);
    room.level.turned(2);
    room.loudness = 2;
    room.echoLevel = 0.0008F; // Too soft to tell anything by.
    room.hear(11);
    EXPECT_EQ(room.level.lowered(), 1);
    room.hear(3);
    EXPECT_NEAR(room.level.lowered(), 2, 0.02);
}

TEST(EchoLevel, WaitsWithWhatItIsToldUntilSomethingSounds) {
    Room room;
    room.hear(100);
    room.echoLevel = 0;
    room.level.turned(2);
    room.hear(500);
    EXPECT_TRUE(room.level.isUnsettled());
    EXPECT_EQ(room.level.lowered(), 1);
    room.loudness = 2;
    room.echoLevel = 0.1F;
    room.hear(5);
    EXPECT_NEAR(room.level.lowered(), 2, 0.02);
}

TEST(EchoLevel, AddsUpWhatItIsToldStepByStep) {
    Room room;
    room.hear(100);
    for (int step = 0; step < 4; ++step)
        room.level.turned(1.25F);
    room.loudness = 1.25F * 1.25F * 1.25F * 1.25F;
    room.hear(5);
    EXPECT_NEAR(room.level.lowered(), room.loudness, 0.03);
}

TEST(EchoLevel, DoesNotTakeTwiceWhatItHadSeenBeforeItWasTold) {
    Room room;
    room.hear(100);
    room.loudness = 4;
    room.hear(10);
    EXPECT_GT(room.level.lowered(), 3);
    room.level.turned(4);
    for (int frame = 0; frame < 20; ++frame) {
        room.hear(1);
        ASSERT_LT(room.level.lowered(), 4.1F);
    }
    EXPECT_GT(room.level.lowered(), 3.7F);
}

TEST(EchoLevel, CorrectsWhatItWasToldWhenTheEchoSaysOtherwise) {
    Room room;
    room.hear(100);
    room.level.turned(4);
    room.hear(60);
    EXPECT_NEAR(room.level.lowered(), 1, 0.15);
}

TEST(EchoLevel, IsUnsettledFromWhenItIsToldUntilTheRoomHasIt) {
    Room room;
    room.hear(100);
    EXPECT_FALSE(room.level.isUnsettled());
    room.level.turned(4);
    EXPECT_TRUE(room.level.isUnsettled());
    room.loudness = 4;
    room.hear(39);
    EXPECT_TRUE(room.level.isUnsettled());
    room.hear(1);
    EXPECT_FALSE(room.level.isUnsettled());
}

TEST(EchoLevel, IsNotUnsettledByWhatNobodyHears) {
    Room room;
    room.hear(100);
    room.level.turned(1.1F);
    EXPECT_FALSE(room.level.isUnsettled());
    room.level.turned(1 / 1.1F);
    EXPECT_FALSE(room.level.isUnsettled());
}

TEST(EchoLevel, IsUnsettledWhenTheEchoHasBrokenOffAndComesBack) {
    Room room;
    room.hear(100);
    room.loudness = 0.1F;
    room.hear(2);
    EXPECT_TRUE(room.level.isUnsettled());
    room.loudness = 1;
    room.hear(10);
    EXPECT_TRUE(room.level.isUnsettled());
    room.hear(20);
    EXPECT_FALSE(room.level.isUnsettled());
    EXPECT_NEAR(room.level.lowered(), 1, 0.1);
}
