#include "audio/echo/SpeechMask.h"

#include "tests/audio/echo/MaskFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace palomet;
using namespace palomet::echo;

namespace {

/// Weights of nothing but biases: the gains, and whether somebody talks, are the same whatever is heard.
std::shared_ptr<const MaskWeights> constantWeights(float gains, float voice) {
    auto weights = std::make_shared<MaskWeights>();
    weights->exit.biases.fill(gains);
    weights->exit.biases.back() = voice;
    return weights;
}

MaskSignals noise(std::minstd_rand &random) {
    std::uniform_real_distribution<float> sample(-0.3F, 0.3F);
    MaskSignals signals;
    std::generate(signals.linear.begin(), signals.linear.end(), [&] { return sample(random); });
    std::generate(signals.microphone.begin(), signals.microphone.end(), [&] { return sample(random); });
    return signals;
}

constexpr float surely = 50;

} // namespace

TEST(SpeechMask, GivesTheLinearOutputAsItIsWhereNothingIsToGo) {
    SpeechMask mask(constantWeights(surely, surely));
    std::minstd_rand random(1);
    std::vector<float> in;
    std::vector<float> out;
    for (int i = 0; i < 30; ++i) {
        const auto signals = noise(random);
        const auto &frame = mask.process(signals);
        in.insert(in.end(), signals.linear.begin(), signals.linear.end());
        out.insert(out.end(), frame.begin(), frame.end());
    }
    for (std::size_t i = lowFrameSize; i < out.size(); ++i)
        EXPECT_NEAR(out[i], in[i - SpeechMask::delay], 1e-6F) << i;
}

TEST(SpeechMask, IsSilentToTheLastBitWhileNobodyTalks) {
    SpeechMask mask(constantWeights(surely, -surely));
    std::minstd_rand random(2);
    for (int i = 0; i < 50; ++i) {
        const auto &frame = mask.process(noise(random));
        EXPECT_TRUE(std::all_of(frame.begin(), frame.end(), [](float sample) { return sample == 0; })) << i;
    }
}

TEST(SpeechMask, GivesTheSameForTheSame) {
    const auto frames = test::maskSignals();
    SpeechMask one(test::maskWeights());
    SpeechMask other(test::maskWeights());
    for (const auto &signals : frames)
        EXPECT_EQ(one.process(signals), other.process(signals));
}

TEST(SpeechMask, StaysFiniteWhateverIsHeard) {
    SpeechMask mask(test::maskWeights());
    std::minstd_rand random(3);
    for (int i = 0; i < 3000; ++i) {
        auto signals = noise(random);
        const float gain = i % 7 == 0 ? 0 : i % 5 == 0 ? 1e-20F : 3.0F;
        for (auto *const signal : {&signals.linear, &signals.microphone})
            std::for_each(signal->begin(), signal->end(), [&](float &sample) { sample *= gain; });
        const auto &frame = mask.process(signals);
        ASSERT_TRUE(std::all_of(frame.begin(), frame.end(), [](float sample) { return std::isfinite(sample); })) << i;
    }
}
