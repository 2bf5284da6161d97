#include "audio/EchoReference.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace palomet;

namespace {

constexpr std::size_t frameSize = EchoCanceller::frameSize;

std::vector<float> ramp(std::size_t count, float from = 1) {
    std::vector<float> samples(count);
    std::iota(samples.begin(), samples.end(), from);
    return samples;
}

float firstOfNext(EchoReference &reference) {
    EchoCanceller::Frame frame;
    reference.read(frame);
    return frame.front();
}

} // namespace

TEST(EchoReference, GivesWhatWasPlayedInItsOrderWhateverTheSizes) {
    EchoReference reference;
    const auto played = ramp(3 * frameSize);
    reference.write(std::span(played).first(1));
    reference.write(std::span(played).subspan(1, 1000));
    reference.write(std::span(played).subspan(1001));
    for (std::size_t frame = 0; frame < 3; ++frame)
        EXPECT_EQ(firstOfNext(reference), played[frame * frameSize]);
    EXPECT_EQ(reference.backlog(), 0U);
}

TEST(EchoReference, IsSilenceWhileNothingIsPlayed) {
    EchoReference reference;
    EXPECT_EQ(firstOfNext(reference), 0);
}

TEST(EchoReference, ALateFrameIsSilenceAndNothingOfItIsLost) {
    EchoReference reference;
    reference.write(ramp(100));
    EXPECT_EQ(firstOfNext(reference), 0);
    reference.write(ramp(frameSize, 101));
    EXPECT_EQ(firstOfNext(reference), 1);
}

TEST(EchoReference, KeepsTheNewestSecondWhileTheMicrophoneIsClosed) {
    EchoReference reference;
    const auto played = ramp(200000);
    reference.write(played);
    EXPECT_EQ(reference.backlog(), 65536U);
    EXPECT_EQ(firstOfNext(reference), played[200000 - 65536]);
}

TEST(EchoReference, GivesBackAgeThatNobodyNeededWhereItsEchoIsNear) {
    EchoReference reference;
    const auto run = [&](int frames) {
        for (int frame = 0; frame < frames; ++frame) {
            reference.write(ramp(frameSize));
            firstOfNext(reference);
            reference.settle(1, 19);
        }
    };
    reference.write(ramp(5 * frameSize));
    run(99);
    EXPECT_EQ(reference.backlog(), 5 * frameSize);
    run(1);
    EXPECT_EQ(reference.backlog(), 0U);
    // Later on more patience is due.
    reference.write(ramp(3 * frameSize + 7));
    run(999);
    EXPECT_EQ(reference.backlog(), 3 * frameSize + 7);
    run(1);
    EXPECT_EQ(reference.backlog(), 7U);
}

TEST(EchoReference, KeepsTheFrameThatOneLateCallbackBroughtIn) {
    EchoReference reference;
    reference.write(ramp(2 * frameSize - 1));
    for (int frame = 0; frame < 5000; ++frame) {
        reference.write(ramp(frameSize));
        firstOfNext(reference);
        reference.settle(1, 0);
    }
    EXPECT_EQ(reference.backlog(), 2 * frameSize - 1);
}

TEST(EchoReference, KeepsTheAgeThatTheCallbacksNeed) {
    EchoReference reference;
    // The speakers ask for four frames at once, the microphone brings one at a time.
    for (int round = 0; round < 1000; ++round) {
        reference.write(ramp(4 * frameSize));
        for (int frame = 0; frame < 4; ++frame) {
            EXPECT_EQ(firstOfNext(reference), static_cast<float>(1 + frame * static_cast<int>(frameSize)));
            reference.settle(1, 0);
        }
    }
}

TEST(EchoReference, IsOlderFromTheFirstSecondOnByHalfOfWhatItsEchoTakes) {
    EchoReference reference;
    const auto run = [&](int frames, int delayMs) {
        for (int frame = 0; frame < frames; ++frame) {
            reference.write(ramp(frameSize));
            firstOfNext(reference);
            reference.settle(1, delayMs);
        }
    };
    run(99, 75);
    EXPECT_EQ(reference.backlog(), 0U);
    run(1, 75);
    EXPECT_EQ(reference.backlog(), 3 * frameSize);
    // Three callbacks in a row may be late now, and the echo comes when it came before.
    for (int frame = 0; frame < 3; ++frame)
        EXPECT_EQ(firstOfNext(reference), 1);
    reference.write(ramp(3 * frameSize));
    run(5000, 45);
    EXPECT_EQ(reference.backlog(), 3 * frameSize);
    reference.clear();
    run(100, 75);
    EXPECT_EQ(reference.backlog(), 3 * frameSize);
}
