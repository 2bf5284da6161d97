#include "doctor/LevelProbe.h"

#include <gtest/gtest.h>

#include <array>

using namespace palomet;
using namespace std::chrono_literals;

namespace {

void hear(LevelProbe &probe, std::initializer_list<float> samples) {
    probe.captured(std::span(samples.begin(), samples.size()), 0us);
}

} // namespace

TEST(LevelProbe, HasNoLevelBeforeItHasHeardAnything) {
    LevelProbe probe;
    EXPECT_FALSE(probe.level());
}

TEST(LevelProbe, MeasuresThePeakAndTheMeanOfAllThatItHeard) {
    LevelProbe probe;
    hear(probe, {0.5F, -0.5F});
    hear(probe, {-1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    ASSERT_TRUE(probe.level());
    EXPECT_DOUBLE_EQ(probe.level()->peak, 1);
    EXPECT_DOUBLE_EQ(probe.level()->mean, std::sqrt(1.5 / 8));
}

TEST(LevelProbe, ForgetsAtARestartWhatItHeardBefore) {
    LevelProbe probe;
    hear(probe, {1.0F, 1.0F, 1.0F, 1.0F});
    probe.restart();
    EXPECT_FALSE(probe.level());
    hear(probe, {0.25F, -0.25F});
    hear(probe, {0.25F, -0.25F});
    ASSERT_TRUE(probe.level());
    EXPECT_DOUBLE_EQ(probe.level()->peak, 0.25);
    EXPECT_DOUBLE_EQ(probe.level()->mean, 0.25);
}

TEST(LevelProbe, GivesEachPeakOnce) {
    LevelProbe probe;
    hear(probe, {0.5F, -0.75F});
    EXPECT_DOUBLE_EQ(probe.takePeak(), 0.75);
    EXPECT_DOUBLE_EQ(probe.takePeak(), 0);
}

TEST(LevelProbe, PlaysSilence) {
    LevelProbe probe;
    EXPECT_FALSE(probe.hasPlayed());
    std::array<float, 3> samples{1, 1, 1};
    probe.fill(samples);
    EXPECT_EQ(samples, (std::array<float, 3>{}));
    EXPECT_TRUE(probe.hasPlayed());
}
