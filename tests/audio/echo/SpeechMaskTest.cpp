#include "audio/echo/SpeechMask.h"

#include "audio/echo/EchoCanceller.h"
#include "audio/echo/Samples.h"
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

/// By how many samples noise from here comes out of the canceller later than it went in.
std::size_t latency(EchoCanceller &canceller) {
    std::minstd_rand random(4);
    std::uniform_real_distribution<float> sample(-0.2F, 0.2F);
    std::vector<float> in(80 * EchoCanceller::frameSize);
    // Of the lower voice, that the linear output's rate is no matter.
    float low = 0;
    std::generate(in.begin(), in.end(), [&] { return low += 0.3F * (sample(random) - low); });
    std::vector<float> out(in.size());
    const EchoCanceller::Frame silence{};
    for (std::size_t at = 0; at < in.size(); at += EchoCanceller::frameSize) {
        canceller.render(silence);
        canceller.capture(std::span(in).subspan(at).first<EchoCanceller::frameSize>(), 0,
                          std::span(out).subspan(at).first<EchoCanceller::frameSize>());
    }
    std::size_t best = 0;
    float most = 0;
    for (std::size_t lag = 0; lag < 2 * EchoCanceller::frameSize; ++lag) {
        float sum = 0;
        for (std::size_t i = in.size() / 2; i < in.size(); ++i)
            sum += out[i] * in[i - lag];
        if (sum > most) {
            most = sum;
            best = lag;
        }
    }
    return best;
}

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

TEST(SpeechMask, GivesTheLinearOutputAsItIsWhereThereIsNoEcho) {
    SpeechMask mask(constantWeights(-surely, -surely));
    std::minstd_rand random(1);
    LowFrame before{};
    for (int i = 0; i < 30; ++i) {
        const auto signals = noise(random);
        const auto &frame = mask.process(signals, false);
        for (std::size_t n = 0; n < lowFrameSize && i > 0; ++n) {
            const float in = n < SpeechMask::delay ? before[lowFrameSize + n - SpeechMask::delay]
                                                   : signals.linear[n - SpeechMask::delay];
            EXPECT_NEAR(frame[n], in, 1e-6F) << i << ", " << n;
        }
        before = signals.linear;
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

TEST(SpeechMask, MakesNothingComeLater) {
    if (!EchoCanceller::takesMask())
        GTEST_SKIP() << "the library has no linear output";
    const auto gated = EchoCanceller::create();
    const auto masked = EchoCanceller::create(constantWeights(surely, surely));
    ASSERT_TRUE(gated && masked);
    const auto before = latency(**gated);
    EXPECT_GT(before, 0U);
    EXPECT_LE(latency(**masked), before + 2);
}

TEST(SpeechMask, TheProgramHearsSilenceToTheLastBitWhileNobodyTalks) {
    if (!EchoCanceller::takesMask())
        GTEST_SKIP() << "the library has no linear output";
    const auto canceller = EchoCanceller::create(constantWeights(surely, -surely));
    ASSERT_TRUE(canceller);
    std::minstd_rand random(5);
    std::uniform_real_distribution<float> sample(-0.2F, 0.2F);
    EchoCanceller::Frame played;
    EchoCanceller::Frame frame;
    for (int i = 0; i < 300; ++i) {
        std::generate(played.begin(), played.end(), [&] { return sample(random); });
        std::transform(played.begin(), played.end(), frame.begin(), [](float value) { return 0.3F * value; });
        (*canceller)->render(played);
        (*canceller)->capture(frame, 0, frame);
        const bool isSilent = std::all_of(frame.begin(), frame.end(), [](float value) { return value == 0; });
        EXPECT_TRUE(isSilent || i <= 3) << i; // Then the canceller is listened to.
    }
}

TEST(SpeechMask, TheProgramHearsWhateverComesOnceTheAgentIsSilent) {
    if (!EchoCanceller::takesMask())
        GTEST_SKIP() << "the library has no linear output";
    const auto canceller = EchoCanceller::create(constantWeights(-surely, -surely));
    ASSERT_TRUE(canceller);
    std::minstd_rand random(6);
    std::uniform_real_distribution<float> sample(-0.2F, 0.2F);
    EchoCanceller::Frame frame;
    const auto fill = [&] { std::generate(frame.begin(), frame.end(), [&] { return sample(random); }); };
    for (int i = 0; i < 200; ++i) {
        EchoCanceller::Frame played{};
        if (i < 100)
            std::generate(played.begin(), played.end(), [&] { return sample(random); });
        fill();
        (*canceller)->render(played);
        (*canceller)->capture(frame, 0, frame);
        // From 50 frames after the last one that was played; the canceller rests only after 200.
        if (i >= 150) {
            EXPECT_GT(echo::meanSquare(frame), 0.003F) << i;
        }
    }
}
