#include "audio/speech/SpeechMixer.h"

#include "base/Wakeup.h"

#include <gtest/gtest.h>

using namespace palomet;

namespace {

struct CountingBell final : Wakeup {
    int rings = 0;
    void raise() noexcept override { ++rings; }
};

struct SpeechMixerTest : testing::Test {
    CountingBell bell;
    SpeechMixer mixer;

    SpeechMixerTest() {
        mixer.setBell(&bell);
        mixer.playbackOpened();
    }

    void submit(qint64 id, ClipSamples samples, quint64 generation = 0) {
        mixer.submit(std::make_unique<SpeechClip>(SpeechClip{{id}, generation, std::move(samples)}));
    }

    std::vector<float> fill(std::size_t count) {
        std::vector<float> samples(count, 9.0F);
        mixer.fill(samples);
        return samples;
    }

    std::vector<qint64> finished() {
        std::vector<qint64> ids;
        while (const auto clip = mixer.takeFinished())
            ids.push_back(clip->id.number);
        return ids;
    }
};

std::vector<float> joined(std::initializer_list<std::vector<float>> parts) {
    std::vector<float> all;
    for (const auto &part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<float> constant(std::size_t count, float value) {
    return std::vector<float>(count, value);
}

} // namespace

TEST_F(SpeechMixerTest, GivesSilenceWhenThereIsNothingToSay) {
    EXPECT_EQ(fill(100), constant(100, 0));
    mixer.heard(100);
    EXPECT_EQ(bell.rings, 0);
}

TEST_F(SpeechMixerTest, PlaysClipsOneAfterTheOtherWithoutAGap) {
    submit(1, constant(150, 0.1F));
    submit(2, constant(20, 0.2F));
    submit(3, constant(50, 0.3F));
    EXPECT_EQ(joined({fill(100), fill(100), fill(100)}),
              joined({constant(150, 0.1F), constant(20, 0.2F), constant(50, 0.3F), constant(80, 0)}));
}

TEST_F(SpeechMixerTest, AClipIsOverWhenItsLastFrameWasHeardNotWhenItWasWritten) {
    submit(1, constant(150, 0.1F));
    submit(2, constant(150, 0.2F));
    fill(480);
    mixer.heard(149);
    EXPECT_EQ(finished(), std::vector<qint64>{});
    mixer.heard(150);
    EXPECT_EQ(finished(), std::vector<qint64>{1});
    mixer.heard(299);
    EXPECT_EQ(finished(), std::vector<qint64>{});
    mixer.heard(1000);
    EXPECT_EQ(finished(), std::vector<qint64>{2});
    EXPECT_EQ(bell.rings, 2);
}

TEST_F(SpeechMixerTest, CountsTheSilenceBetweenClips) {
    fill(1000);
    submit(1, constant(100, 0.1F));
    fill(480);
    mixer.heard(1099);
    EXPECT_EQ(finished(), std::vector<qint64>{});
    mixer.heard(1100);
    EXPECT_EQ(finished(), std::vector<qint64>{1});
}

TEST_F(SpeechMixerTest, AnEstimateThatStepsBackUndoesNothing) {
    submit(1, constant(100, 0.1F));
    fill(100);
    mixer.heard(90);
    mixer.heard(80);
    EXPECT_EQ(mixer.framesHeard(), 90);
    mixer.heard(100);
    EXPECT_EQ(finished(), std::vector<qint64>{1});
}

TEST_F(SpeechMixerTest, AClipWithoutFramesIsOverInItsTurn) {
    submit(1, {});
    fill(10);
    EXPECT_EQ(finished(), std::vector<qint64>{1});
    submit(2, constant(100, 0.1F));
    submit(3, {});
    submit(4, {});
    submit(5, constant(100, 0.1F));
    fill(480);
    EXPECT_EQ(finished(), std::vector<qint64>{});
    mixer.heard(110);
    EXPECT_EQ(finished(), (std::vector<qint64>{2, 3, 4}));
    mixer.heard(210);
    EXPECT_EQ(finished(), std::vector<qint64>{5});
}

TEST_F(SpeechMixerTest, WhatIsSilencedFadesWithinFiveMillisecondsOfTheNextFill) {
    submit(1, constant(48000, 0.5F));
    submit(2, constant(48000, 0.5F));
    fill(480);
    mixer.silenceBefore(1);
    const auto samples = fill(480);
    EXPECT_LT(samples[0], 0.5F);
    EXPECT_GT(samples[0], 0.49F);
    for (std::size_t i = 1; i < SpeechMixer::fadeSize; ++i)
        EXPECT_LT(samples[i], samples[i - 1]);
    EXPECT_LT(samples[SpeechMixer::fadeSize - 1], 0.01F);
    EXPECT_EQ(std::vector<float>(samples.begin() + SpeechMixer::fadeSize, samples.end()),
              constant(480 - SpeechMixer::fadeSize, 0));
    EXPECT_LE(SpeechMixer::fadeSize, 48000U * 5 / 1000);
    EXPECT_EQ(finished(), (std::vector<qint64>{1, 2}));
    EXPECT_EQ(fill(100), constant(100, 0));
}

TEST_F(SpeechMixerTest, WhatIsSilencedAndNearlyOverFadesInWhatIsLeftOfIt) {
    submit(1, constant(490, 0.5F));
    fill(480);
    mixer.silenceBefore(1);
    const auto samples = fill(480);
    EXPECT_GT(samples[8], samples[9]);
    EXPECT_GT(samples[9], 0);
    EXPECT_EQ(samples[10], 0);
}

TEST_F(SpeechMixerTest, AClipAskedForAfterAStopPlaysRightBehindTheFade) {
    submit(1, constant(48000, 0.5F));
    fill(480);
    mixer.silenceBefore(1);
    submit(2, constant(100, 0.25F), 1);
    const auto samples = fill(480);
    EXPECT_EQ(samples[SpeechMixer::fadeSize], 0.25F);
    EXPECT_EQ(samples[SpeechMixer::fadeSize + 99], 0.25F);
    EXPECT_EQ(samples[SpeechMixer::fadeSize + 100], 0);
    EXPECT_EQ(finished(), std::vector<qint64>{1});
    mixer.heard(480 + SpeechMixer::fadeSize + 100);
    EXPECT_EQ(finished(), std::vector<qint64>{2});
}

TEST_F(SpeechMixerTest, AClipFromAfterAStopThatIsNotSeenYetIsNotSilenced) {
    submit(1, constant(10, 0.25F), 1);
    EXPECT_EQ(fill(10), constant(10, 0.25F));
    mixer.silenceBefore(1);
    fill(10);
    EXPECT_EQ(finished(), std::vector<qint64>{});
    mixer.heard(10);
    EXPECT_EQ(finished(), std::vector<qint64>{1});
}

TEST_F(SpeechMixerTest, SilencedClipsComeBackInTheirOrder) {
    submit(1, constant(100, 0.5F));
    submit(2, constant(100, 0.5F));
    submit(3, constant(100, 0.5F));
    fill(150);
    mixer.silenceBefore(1);
    fill(480);
    EXPECT_EQ(finished(), (std::vector<qint64>{1, 2, 3}));
}

TEST_F(SpeechMixerTest, AStreamOpenedAnewEndsWhatTheOldOneHadNotPlayedOut) {
    submit(1, constant(100, 0.1F));
    submit(2, constant(100, 0.2F));
    fill(150);
    mixer.playbackOpened();
    EXPECT_EQ(finished(), std::vector<qint64>{1});
    EXPECT_EQ(fill(100), joined({constant(50, 0.2F), constant(50, 0)}));
    mixer.heard(50);
    EXPECT_EQ(finished(), std::vector<qint64>{2});
}

TEST_F(SpeechMixerTest, HoldsAllTheClipsThatItMay) {
    for (std::size_t i = 0; i < SpeechMixer::maximumClips; ++i)
        submit(static_cast<qint64>(i), constant(1, 0.1F));
    fill(1000);
    mixer.heard(1000);
    EXPECT_EQ(finished().size(), SpeechMixer::maximumClips);
}

TEST_F(SpeechMixerTest, FreesWhatIsStillInside) {
    submit(1, constant(10, 0.1F));
    submit(2, constant(1000, 0.1F));
    submit(3, constant(10, 0.1F));
    submit(4, {});
    fill(100);
    mixer.heard(10);
}

TEST_F(SpeechMixerTest, AClipWithoutFramesWaitsForNothingThatAnEarlierStreamPlayed) {
    submit(1, constant(1000, 0.1F));
    fill(1000);
    mixer.heard(1000);
    EXPECT_EQ(finished(), std::vector<qint64>{1});
    mixer.playbackOpened();
    submit(2, {});
    fill(10);
    EXPECT_EQ(finished(), std::vector<qint64>{2});
}
