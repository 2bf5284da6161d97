#include "audio/echo/EchoReference.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace palomet;

namespace {

/// Two streams on clocks that are apart, whose deliveries have odd sizes and whose latencies are told with errors of
/// up to a millisecond.
struct OddStreams {
    explicit OddStreams(double partsPerMillion)
        : rate(1 + partsPerMillion * 1e-6) {}

    /// Lets so many seconds pass. The lead, which is known exactly here, changes by so many samples.
    double run(double seconds) {
        const double before = lead();
        for (const double until = heard + seconds * 48000; heard < until;) {
            const auto piece = static_cast<std::size_t>(random(100, 1600));
            heard += static_cast<double>(piece);
            const auto due = static_cast<std::int64_t>((heard + 1500) * rate);
            reference.write(std::vector<float>(static_cast<std::size_t>(due - written), 1));
            written = due;
            const double delay = 2000 + static_cast<double>(written) / rate - heard + static_cast<double>(piece) + jump;
            const auto told = std::chrono::duration<double>((delay + random(-48, 48)) / 48000);
            reference.follow(piece, static_cast<std::size_t>(unmatched),
                             std::chrono::duration_cast<std::chrono::microseconds>(told));
            for (unmatched += static_cast<std::int64_t>(piece);
                 unmatched >= EchoCanceller::frameSize && reference.isReady(); unmatched -= EchoCanceller::frameSize)
                reference.read(frame);
        }
        return lead() - before;
    }

    /// From the sample that is read next to its echo.
    [[nodiscard]] double lead() const {
        const auto read = static_cast<double>(written - reference.backlog());
        return 2000 + read / rate - (heard - static_cast<double>(unmatched)) + jump;
    }
    double random(double least, double most) {
        seed = seed * 1664525 + 1013904223;
        return least + (most - least) * static_cast<double>(seed >> 8) / 0x1000000;
    }

    EchoReference reference;
    EchoCanceller::Frame frame{};
    double rate;
    double jump = 0;
    double heard = 0;
    std::int64_t written = 0;
    std::int64_t unmatched = 0;
    std::uint32_t seed = 1;
};

constexpr double millisecond = 48; // In samples.

} // namespace

TEST(EchoReference, KnowsWithinTenSecondsByHowMuchTheClocksAreApart) {
    for (const double partsPerMillion : {200.0, -200.0, 60.0, -60.0}) {
        OddStreams streams(partsPerMillion);
        streams.run(12);
        const double perSecond = streams.run(20) / 20;
        EXPECT_LT(std::abs(perSecond), 25e-6 * 48000) << partsPerMillion;
        EXPECT_LT(std::abs(streams.run(60)), 1 * millisecond) << partsPerMillion;
    }
}

TEST(EchoReference, ClocksFarApartAreKnownForTheMostPartAfterEightSeconds) {
    constexpr int starts = 20;
    double left = 0; // In parts per million, as are the clocks.
    for (std::uint32_t start = 1; start <= starts; ++start) {
        OddStreams streams(200);
        streams.seed = start;
        streams.run(8);
        left += std::abs(streams.run(1)) / 48000 * 1e6 / starts;
    }
    EXPECT_LT(left, 90);
}

TEST(EchoReference, OnOneClockNothingIsEverChanged) {
    OddStreams streams(0);
    streams.run(3);
    for (int minute = 0; minute < 30; ++minute)
        EXPECT_EQ(streams.run(60), 0) << minute;
}

TEST(EchoReference, ALatencyThatJumpsALittleIsNoDrift) {
    OddStreams streams(0);
    streams.run(20);
    streams.jump = 3 * millisecond;
    EXPECT_LT(std::abs(streams.run(60)), 1 * millisecond);
}
