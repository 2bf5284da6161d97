#include "audio/echo/Interpolator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace palomet;

namespace {

std::array<float, Interpolator::taps> sine(double frequency, double phase) {
    std::array<float, Interpolator::taps> samples{};
    for (int i = 0; i < Interpolator::taps; ++i)
        samples[static_cast<std::size_t>(i)] =
            static_cast<float>(std::sin(2 * std::numbers::pi * frequency / 48000 * (i - Interpolator::before) + phase));
    return samples;
}

} // namespace

TEST(Interpolator, GivesASampleItselfWhereThereIsOne) {
    const Interpolator interpolator;
    std::array<float, Interpolator::taps> samples{};
    samples[Interpolator::before] = 0.25F;
    samples[Interpolator::before + 1] = -0.5F;
    EXPECT_EQ(interpolator.between(samples, 0), 0.25F);
    EXPECT_EQ(interpolator.between(samples, 1), -0.5F);
}

TEST(Interpolator, PassesAConstantAtEveryFraction) {
    const Interpolator interpolator;
    std::array<float, Interpolator::taps> samples{};
    samples.fill(0.5F);
    for (double fraction = 0; fraction <= 1; fraction += 0.01)
        EXPECT_NEAR(interpolator.between(samples, fraction), 0.5F, 1e-6F);
}

TEST(Interpolator, FollowsSpeechToMinusFiftyDecibels) {
    const Interpolator interpolator;
    for (const double frequency : {100.0, 1000.0, 4000.0, 8000.0}) {
        double error = 0;
        int count = 0;
        for (double phase = 0; phase < 6; phase += 0.31) {
            for (double fraction = 0; fraction <= 1; fraction += 0.013) {
                const double wanted = std::sin(2 * std::numbers::pi * frequency / 48000 * fraction + phase);
                error += std::pow(interpolator.between(sine(frequency, phase), fraction) - wanted, 2);
                ++count;
            }
        }
        EXPECT_LT(10 * std::log10(error / count / 0.5), -50) << frequency;
    }
}
