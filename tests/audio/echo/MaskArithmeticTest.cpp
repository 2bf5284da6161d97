#include "audio/echo/Approximations.h"
#include "audio/echo/MaskFeatures.h"
#include "audio/echo/MaskNetwork.h"
#include "tests/audio/echo/MaskFiles.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace palomet;
using namespace palomet::echo;

TEST(MaskArithmetic, ElementaryFunctionsAreRightToAMillionth) {
    for (double x = -20; x <= 20; x += 0.00371) {
        const auto value = static_cast<float>(x);
        const auto exact = static_cast<double>(value);
        EXPECT_NEAR(static_cast<double>(exponential(value)) / std::exp(exact), 1, 3e-6) << x;
        EXPECT_NEAR(static_cast<double>(sigmoid(value)), 1 / (1 + std::exp(-exact)), 1e-6) << x;
        EXPECT_NEAR(static_cast<double>(hyperbolicTangent(value)), std::tanh(exact), 1e-6) << x;
        const auto power = static_cast<float>(std::exp2(exact));
        EXPECT_NEAR(static_cast<double>(binaryLogarithm(power)), std::log2(static_cast<double>(power)), 3e-6) << x;
    }
}

TEST(MaskArithmetic, ElementaryFunctionsStayWithinTheirBoundsFarOut) {
    for (const float x : {-1e30F, -1000.0F, -80.0F, 80.0F, 1000.0F, 1e30F}) {
        EXPECT_TRUE(std::isfinite(exponential(x)));
        EXPECT_NEAR(sigmoid(x), x < 0 ? 0 : 1, 1e-6F);
        EXPECT_NEAR(hyperbolicTangent(x), x < 0 ? -1 : 1, 1e-6F);
    }
}

TEST(MaskArithmetic, FeaturesAreThoseOfTheReferenceToAHundredThousandth) {
    const auto expected = test::maskNumbers<float>("features.f32");
    const auto frames = test::maskSignals();
    ASSERT_EQ(frames.size(), 40U);
    ASSERT_EQ(expected.size(), frames.size() * MaskFeatures::count);
    MaskFeatures features;
    for (std::size_t frame = 0; frame < frames.size(); ++frame) {
        const auto &values = features.process(frames[frame]);
        for (std::size_t i = 0; i < values.size(); ++i)
            EXPECT_NEAR(values[i], expected[frame * values.size() + i], 1e-5F) << "frame " << frame << ", " << i;
    }
}

TEST(MaskArithmetic, TheNetworkIsThatOfTheReferenceToAHundredThousandth) {
    const auto features = test::maskNumbers<float>("features.f32");
    const auto expected = test::maskNumbers<float>("outputs.f32");
    const auto weights = test::maskWeights();
    ASSERT_TRUE(weights);
    ASSERT_EQ(expected.size(), 40 * MaskWeights::outputs);
    MaskNetwork network(weights);
    for (std::size_t frame = 0; frame < 40; ++frame) {
        MaskFeatures::Values values{};
        std::copy_n(features.begin() + static_cast<std::ptrdiff_t>(frame * values.size()), values.size(),
                    values.begin());
        const auto [gains, voice] = network.process(values);
        for (std::size_t band = 0; band < gains.size(); ++band)
            EXPECT_NEAR(gains[band], expected[frame * MaskWeights::outputs + band], 1e-5F) << frame << ", " << band;
        EXPECT_NEAR(voice, expected[(frame + 1) * MaskWeights::outputs - 1], 1e-5F) << frame;
    }
}
