#include "audio/echo/LinearOutputGate.h"

#include <gtest/gtest.h>

using palomet::echo::LinearOutputGate;
using Powers = LinearOutputGate::Powers;

namespace {

// What a frame is like: the far end alone with a filter that leaves 1 % of the echo, which the suppressor removes, and
// with it a near end that the suppressor lets through or not.
constexpr Powers farEnd{.reference = 1e-2F, .microphone = 1e-2F, .linear = 1e-4F, .suppressed = 1e-7F};
constexpr Powers bothHeard{.reference = 1e-2F, .microphone = 2e-2F, .linear = 1e-2F, .suppressed = 8e-3F};
constexpr Powers bothCut{.reference = 1e-2F, .microphone = 2e-2F, .linear = 1e-2F, .suppressed = 1e-4F};
constexpr Powers silence{};

bool isLinearBetter(LinearOutputGate &gate, const Powers &powers) {
    gate.take(powers);
    return gate.isLinearBetter();
}

int framesUntil(bool isLinear, LinearOutputGate &gate, const Powers &powers) {
    for (int frames = 1; frames <= 1000; ++frames) {
        if (isLinearBetter(gate, powers) == isLinear)
            return frames;
    }
    return -1;
}

LinearOutputGate afterFarEnd(int frames = 300) {
    LinearOutputGate gate;
    for (int i = 0; i < frames; ++i)
        EXPECT_FALSE(isLinearBetter(gate, farEnd));
    return gate;
}

} // namespace

TEST(LinearOutputGate, StaysWithTheSuppressedOutputWhileTheFarEndIsAlone) {
    afterFarEnd(1000);
}

TEST(LinearOutputGate, GivesTheLinearOutputFromTheThirdFrameOfTheNearEndOn) {
    auto gate = afterFarEnd();
    EXPECT_EQ(framesUntil(true, gate, bothHeard), 3);
}

TEST(LinearOutputGate, AWordIsNotCutOffForFifteenFrames) {
    auto gate = afterFarEnd();
    framesUntil(true, gate, bothHeard);
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(isLinearBetter(gate, bothHeard));
    // The smoothed powers take a few frames to say that the near end is gone.
    const int frames = framesUntil(false, gate, bothCut);
    EXPECT_GE(frames, 15);
    EXPECT_LE(frames, 25);
}

TEST(LinearOutputGate, NeverGivesTheLinearOutputOfAFilterThatHasNotFoundThePath) {
    LinearOutputGate gate;
    EXPECT_EQ(framesUntil(true, gate, bothHeard), -1);
    constexpr Powers poor{.reference = 1e-2F, .microphone = 1e-2F, .linear = 3e-3F, .suppressed = 1e-7F};
    for (int i = 0; i < 1000; ++i)
        EXPECT_FALSE(isLinearBetter(gate, poor));
    EXPECT_EQ(framesUntil(true, gate, bothHeard), -1);
}

TEST(LinearOutputGate, DoesNotJudgeTheFilterWhileTheNearEndTalksOrNobodyDoes) {
    auto gate = afterFarEnd();
    framesUntil(true, gate, bothHeard);
    for (int i = 0; i < 1000; ++i)
        EXPECT_TRUE(isLinearBetter(gate, bothHeard));
    for (int i = 0; i < 1000; ++i)
        gate.take(silence);
    EXPECT_EQ(framesUntil(true, gate, bothHeard), 3);
}

TEST(LinearOutputGate, SilenceIsNoNearEnd) {
    auto gate = afterFarEnd();
    EXPECT_EQ(framesUntil(true, gate, silence), -1);
}

TEST(LinearOutputGate, EchoThatTheSuppressorLetsThroughIsNobody) {
    auto gate = afterFarEnd();
    auto echoHeard = bothHeard;
    echoHeard.likeness = 0.8F;
    EXPECT_EQ(framesUntil(true, gate, echoHeard), -1);
    EXPECT_TRUE(gate.isEcho());
    // And the filter that let it through is not trusted any more.
    EXPECT_EQ(framesUntil(true, gate, bothHeard), -1);
    EXPECT_FALSE(gate.isEcho());
}

TEST(LinearOutputGate, ForTwoAndAHalfSecondsWhatAFilterLeavesIsEchoUntilItHasBegun) {
    LinearOutputGate gate;
    constexpr Powers useless{.reference = 1e-2F, .microphone = 1e-2F, .linear = 1e-2F, .suppressed = 1e-3F};
    for (int i = 0; i < 100; ++i) {
        gate.take(useless);
        EXPECT_TRUE(gate.isEcho());
        gate.take(silence);
    }
    static_cast<void>(framesUntil(true, gate, silence));
    EXPECT_FALSE(gate.isEcho());
    // Somebody wears headphones: there is no echo to take out.
    for (int i = 0; i < 250; ++i)
        gate.take(useless);
    EXPECT_FALSE(gate.isEcho());

    LinearOutputGate begun = afterFarEnd(60);
    EXPECT_FALSE(begun.isEcho());
}
