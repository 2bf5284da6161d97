#include "audio/echo/RestingCanceller.h"

#include "bench/audio/echo/Signal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

using namespace palomet;
using bench::Noise;
using bench::Signal;
using bench::toDecibels;
using echo::RestingCanceller;

namespace {

constexpr std::size_t frameSize = EchoCanceller::frameSize;
constexpr int delay = 430;

/// Finds no echo, and is late.
class NothingToCancel final : public EchoCanceller {
public:
    struct Calls {
        int rendered = 0;
        int captured = 0;
        int resets = 0;
    };

    explicit NothingToCancel(Calls &calls)
        : m_calls(calls) {}

    void render(std::span<const float, EchoCanceller::frameSize>) noexcept override { ++m_calls.rendered; }
    void capture(std::span<const float, EchoCanceller::frameSize> in, int,
                 std::span<float, EchoCanceller::frameSize> out) noexcept override {
        ++m_calls.captured;
        std::copy(m_samples.begin() + frameSize, m_samples.end(), m_samples.begin());
        std::copy(in.begin(), in.end(), m_samples.end() - frameSize);
        std::copy_n(m_samples.end() - frameSize - delay, frameSize, out.begin());
    }
    void reset() noexcept override { ++m_calls.resets; }
    [[nodiscard]] EchoCancellerState state() const override { return {}; }

private:
    Calls &m_calls;
    std::array<float, 2 * frameSize> m_samples{};
};

class Resting : public ::testing::Test {
protected:
    /// Plays and hears so many frames; the microphone hears a tone. Returns what came out.
    Signal run(int frames, float played) {
        Signal output;
        EchoCanceller::Frame frame{};
        frame[100] = played;
        const auto reference = frame;
        for (int i = 0; i < frames; ++i) {
            for (float &sample : frame)
                sample = tone(m_heard++);
            canceller.render(reference);
            canceller.capture(frame, 60, frame);
            output.insert(output.end(), frame.begin(), frame.end());
        }
        return output;
    }

    static float tone(int at) {
        return 0.5F * static_cast<float>(std::sin(2 * std::numbers::pi * 1000 * (at - 0.5) / 48000));
    }

    NothingToCancel::Calls calls;
    RestingCanceller canceller{std::make_unique<NothingToCancel>(calls), delay};

private:
    int m_heard = 0;
};

/// The reference is noise but for the silence in the middle, the microphone its echo of 60 ms and a little more.
struct Conversation {
    static constexpr double silentFrom = 6;

    explicit Conversation(double silence)
        : silentTo(silentFrom + silence)
        , reference(bench::samplesIn(silentTo + 4))
        , microphone(reference.size()) {
        Noise noise(11);
        const auto late = bench::samplesIn(0.06);
        for (std::size_t i = 0; i < reference.size(); ++i) {
            const bool isSilent = i >= bench::samplesIn(silentFrom) && i < bench::samplesIn(silentTo);
            reference[i] = isSilent || i / 9600 % 3 == 0 ? 0 : 0.2F * noise();
            microphone[i] =
                i < late ? 0 : 0.4F * reference[i - late] + (i < late + 100 ? 0 : 0.1F * reference[i - late - 100]);
        }
    }

    double silentTo;
    Signal reference;
    Signal microphone;
};

} // namespace

TEST_F(Resting, EveryFrameIsCancelledWhileSomethingIsPlayed) {
    run(500, 0.1F);
    EXPECT_EQ(calls.rendered, 500);
    EXPECT_EQ(calls.captured, 500);
}

TEST_F(Resting, TheCancellerRestsTwoSecondsAfterTheLastSound) {
    run(1, 0.1F);
    run(1000, 0);
    EXPECT_EQ(calls.rendered, 201);
    EXPECT_EQ(calls.captured, 201);
}

TEST_F(Resting, TheFirstSampleThatIsPlayedWakesIt) {
    run(1000, 0);
    const auto before = calls;
    run(1, 1e-9F);
    EXPECT_EQ(calls.rendered, before.rendered + 1);
    EXPECT_EQ(calls.captured, before.captured + 1);
}

TEST_F(Resting, WhatIsHeardGoesOnWithoutAJumpWhenItRestsAndWakes) {
    auto output = run(250, 0);
    for (int round = 0; round < 5; ++round) {
        for (const auto &part : {run(100 + round, 0.1F), run(250, 0)})
            output.insert(output.end(), part.begin(), part.end());
    }
    // The high pass moves the tone by a few degrees.
    for (std::size_t i = 48000; i < output.size(); ++i)
        ASSERT_NEAR(output[i], tone(static_cast<int>(i) - delay), 0.09) << i;
    // And the tone's own steepest step is 0.0654.
    for (std::size_t i = 48001; i < output.size(); ++i)
        ASSERT_LT(std::abs(output[i] - output[i - 1]), 0.068F) << i;
}

TEST_F(Resting, AfterAResetItIsAwake) {
    run(1000, 0);
    canceller.reset();
    EXPECT_EQ(calls.resets, 1);
    const auto before = calls;
    run(100, 0);
    EXPECT_EQ(calls.captured, before.captured + 100);
}

TEST_F(Resting, WhatIsNotANumberDoesNotStayInTheBypass) {
    run(300, 0);
    EchoCanceller::Frame frame;
    frame.fill(std::numeric_limits<float>::quiet_NaN());
    canceller.render(EchoCanceller::Frame{});
    canceller.capture(frame, 60, frame);
    for (const float sample : run(10, 0))
        ASSERT_TRUE(std::isfinite(sample));
}

TEST(EchoCanceller, CancelsAfterALongSilenceAsItDidBefore) {
    for (const double silence : {0.5, 20.0}) {
        const Conversation talk(silence);
        const auto canceller = EchoCanceller::create();
        ASSERT_TRUE(canceller.isOk());
        Signal output(talk.microphone.size());
        for (std::size_t at = 0; at + frameSize <= output.size(); at += frameSize) {
            EchoCanceller::Frame frame;
            (*canceller)->render(std::span(talk.reference).subspan(at).first<EchoCanceller::frameSize>());
            (*canceller)->capture(std::span(talk.microphone).subspan(at).first<EchoCanceller::frameSize>(), 60, frame);
            std::copy(frame.begin(), frame.end(), output.begin() + static_cast<std::ptrdiff_t>(at));
        }
        for (const auto from : {Conversation::silentFrom - 2, talk.silentTo, talk.silentTo + 0.5}) {
            const auto heard = std::span(talk.microphone).subspan(bench::samplesIn(from), bench::samplesIn(0.5));
            const auto left = std::span(output).subspan(bench::samplesIn(from), bench::samplesIn(0.5));
            EXPECT_GT(toDecibels(bench::meanSquare(heard) / bench::meanSquare(left)), 25) << silence << ", " << from;
        }
    }
}
