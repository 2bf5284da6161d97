#include "audio/capture/Resampler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

using namespace palomet;
using testing::Each;
using testing::ElementsAre;
using Samples = std::vector<std::int16_t>;

namespace {

Samples convert(Resampler &resampler, const std::vector<float> &input) {
    Samples output(resampler.capacity(input.size()));
    output.resize(resampler.process(input, output));
    return output;
}

/// Every output sample thought through on its own: what the resampler must agree with to the bit.
class PlainResampler {
public:
    explicit PlainResampler(double step)
        : m_step(step) {}

    Samples convert(const std::vector<float> &input) {
        Samples output;
        while (m_position < static_cast<double>(input.size())) {
            const auto index = static_cast<std::size_t>(std::trunc(m_position));
            const auto fraction = static_cast<float>(m_position - static_cast<double>(index));
            const float a = index == 0 ? m_last : input[index - 1];
            const float b = input[index];
            const float difference = b - a;
            const float product = difference * fraction;
            const float value = a + product;
            float scaled = 32767;
            if (value < 1)
                scaled = (value < -1 ? -1 : value) * 32767.0F;
            output.push_back(static_cast<std::int16_t>(scaled));
            m_position += m_step;
        }
        m_position -= static_cast<double>(input.size());
        if (!input.empty())
            m_last = input.back();
        return output;
    }

private:
    double m_step;
    double m_position = 0;
    float m_last = 0;
};

/// The same noise on every machine, a little beyond full scale.
std::vector<float> noise(std::size_t count, std::uint32_t seed) {
    std::vector<float> samples(count);
    for (auto &sample : samples) {
        seed = seed * 1664525U + 1013904223U;
        sample = static_cast<float>(static_cast<std::int32_t>(seed)) * (1.1F / 2147483648.0F);
    }
    return samples;
}

constexpr auto infinity = std::numeric_limits<float>::infinity();
constexpr auto notANumber = std::numeric_limits<float>::quiet_NaN();

} // namespace

TEST(Resampler, StartsAtTheBeginningWithSilenceBehindIt) {
    const Resampler resampler(48000, 16000);
    EXPECT_EQ(resampler.step(), 3.0);
    EXPECT_EQ(resampler.position(), 0.0);
    EXPECT_EQ(resampler.last(), 0.0F);
}

TEST(Resampler, AnEmptyBufferGivesNothingAndChangesNothing) {
    Resampler resampler(44100, 16000);
    convert(resampler, noise(100, 1));
    const auto position = resampler.position();
    const auto last = resampler.last();
    EXPECT_TRUE(convert(resampler, {}).empty());
    EXPECT_EQ(resampler.position(), position);
    EXPECT_EQ(resampler.last(), last);
}

TEST(Resampler, BuffersOf1024At48000HzGive342Then341Then341) {
    Resampler resampler(48000, 16000);
    const std::vector<float> buffer(1024, 0.25F);
    std::vector<std::size_t> counts;
    for (int i = 0; i < 6; ++i)
        counts.push_back(convert(resampler, buffer).size());
    EXPECT_THAT(counts, ElementsAre(342, 341, 341, 342, 341, 341));
}

TEST(Resampler, FromEvery48000FramesComeExactly16000) {
    Resampler resampler(48000, 16000);
    std::size_t total = 0;
    for (int buffer = 0; buffer < 375; ++buffer) // 375 × 1024 = 8 × 48000
        total += convert(resampler, std::vector<float>(1024, 0.5F)).size();
    EXPECT_EQ(total, 8U * 16000U);
}

TEST(Resampler, TheVeryFirstSampleIsSilenceWhateverComesIn) {
    for (const double rate : {8000.0, 16000.0, 44100.0, 48000.0}) {
        Resampler resampler(rate, 16000);
        EXPECT_EQ(convert(resampler, {0.9F, 0.9F, 0.9F}).front(), 0) << rate;
    }
}

TEST(Resampler, LagsOneInputSample) {
    Resampler resampler(48000, 16000);
    EXPECT_THAT(convert(resampler, {0, 0, 0.5F, 0, 0, -0.5F, 0}), ElementsAre(0, 16383, -16383));
}

TEST(Resampler, JoinsBuffersThroughTheLastSampleOfTheOneBefore) {
    Resampler resampler(16000, 16000);
    EXPECT_THAT(convert(resampler, {0.25F, 0.5F}), ElementsAre(0, 8191));
    EXPECT_EQ(resampler.last(), 0.5F);
    EXPECT_THAT(convert(resampler, {0.75F}), ElementsAre(16383));
}

TEST(Resampler, InterpolatesBetweenNeighbours) {
    Resampler resampler(24000, 16000);
    // Read at 0, 1.5 and 3: between the samples -1 and 0, 0 and 1, 2 and 3.
    EXPECT_THAT(convert(resampler, {0.2F, 0.4F, 0.6F, 0.8F}), ElementsAre(0, 9830, 19660));
}

TEST(Resampler, TruncatesTowardsZero) {
    Resampler resampler(16000, 16000);
    EXPECT_THAT(convert(resampler, {0.9F, -0.9F, 0.00003F, 0}), ElementsAre(0, 29490, -29490, 0));
}

TEST(Resampler, ClampsSymmetrically) {
    Resampler resampler(16000, 16000);
    EXPECT_THAT(convert(resampler, {1, 1.5F, 1e30F, -1, -1.5F, -1e30F, 0}),
                ElementsAre(0, 32767, 32767, 32767, -32767, -32767, -32767));
}

TEST(Resampler, WhatIsNotANumberIsTheGreatestSample) {
    Resampler resampler(48000, 16000);
    EXPECT_THAT(convert(resampler, {0, 0, notANumber, 0, 0, infinity, 0}), ElementsAre(0, 32767, 32767));
    Resampler same(16000, 16000);
    EXPECT_THAT(convert(same, {notANumber, 0.5F, 0.5F}).back(), 16383);
}

TEST(Resampler, ALowerRateGivesSeveralSamplesForEachOneTaken) {
    Resampler resampler(8000, 16000);
    EXPECT_THAT(convert(resampler, {0.5F, 0.25F}), ElementsAre(0, 8191, 16383, 12287));
    EXPECT_EQ(resampler.position(), 0.0);
}

TEST(Resampler, ABufferShorterThanAStepIsSkippedOver) {
    Resampler resampler(48000, 16000);
    EXPECT_EQ(convert(resampler, {0.1F}).size(), 1U);
    EXPECT_EQ(convert(resampler, {0.2F}).size(), 0U);
    EXPECT_EQ(convert(resampler, {0.3F}).size(), 0U);
    EXPECT_THAT(convert(resampler, {0.4F}), ElementsAre(9830)); // The sample before, 0.3.
}

TEST(Resampler, AgreesToTheBitWithThePlainRuleHoweverTheInputIsCut) {
    for (const double rate : {1000.0, 7999.0, 8000.0, 11025.0, 16000.0, 22050.0, 44100.0, 48000.0, 96000.0, 384000.0}) {
        Resampler resampler(rate, 16000);
        PlainResampler plain(rate / 16000);
        std::uint32_t seed = 7;
        for (const std::size_t size : {1U, 1023U, 1U, 2047U, 0U, 480U, 1024U, 1024U, 3U, 65536U}) {
            const auto input = noise(size, ++seed);
            ASSERT_EQ(convert(resampler, input), plain.convert(input)) << rate << " Hz, " << size << " samples";
        }
    }
}

TEST(Resampler, NeverGivesMoreThanItsCapacity) {
    for (double rate = 100; rate < 400000; rate *= 1.07) {
        Resampler resampler(rate, 16000);
        for (int buffer = 0; buffer < 50; ++buffer) {
            const std::vector<float> input(static_cast<std::size_t>(buffer * 7 + 1), 0.5F);
            Samples output(resampler.capacity(input.size()) + 1, 12345);
            const auto count = resampler.process(input, output);
            ASSERT_LE(count, resampler.capacity(input.size()));
            ASSERT_EQ(output.back(), 12345);
        }
    }
}
