#include "audio/speech/SpeechPlayer.h"

#include "tests/support/Speakers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <semaphore>

using namespace palomet;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// No event loop here: the threads that meet are the decoding one and the test's, which is all the others.

namespace {

struct SpeechPlayerTest : testing::Test {
    std::vector<qint64> played;
    std::mutex failuresMutex;
    std::vector<std::pair<qint64, QString>> failures;
    int quiets = 0;
    std::int64_t position = 0;
    SpeechMixer mixer;
    std::unique_ptr<SpeechPlayer> player;

    explicit SpeechPlayerTest(SpeechDecoder::Decode decode = &test::decodeNumber)
        : player(std::make_unique<SpeechPlayer>(mixer, std::move(decode))) {
        player->onPlayed = [this](ClipId id) { played.push_back(id.number); };
        player->onFailed = [this](ClipId id, const QString &reason) {
            const std::lock_guard guard(failuresMutex);
            failures.emplace_back(id.number, reason);
        };
        player->onQuiet = [this] { ++quiets; };
    }

    std::vector<float> fill(std::size_t count) {
        std::vector<float> samples(count);
        mixer.fill(samples);
        position += static_cast<std::int64_t>(count);
        return samples;
    }

    /// The speakers play and everything is heard at once, until `holds`.
    template <typename Condition>
    bool speakUntil(Condition holds, std::size_t step = 480) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!holds()) {
            if (std::chrono::steady_clock::now() > deadline)
                return false;
            fill(step);
            mixer.heard(position);
            player->collect();
            std::this_thread::yield();
        }
        return true;
    }

    void play(qint64 id, const char *data) { player->play({id}, data, QStringLiteral("mp3")); }

    std::size_t failureCount() {
        const std::lock_guard guard(failuresMutex);
        return failures.size();
    }
};

/// Decodes only when the test lets it.
struct HeldDecoding : SpeechPlayerTest {
    std::counting_semaphore<> mayDecode{0};
    std::counting_semaphore<> isDecoding{0};
    HeldDecoding()
        : SpeechPlayerTest([this](const QByteArray &data, const QString &extension) {
            isDecoding.release();
            mayDecode.acquire();
            return test::decodeNumber(data, extension);
        }) {}
    ~HeldDecoding() override {
        mayDecode.release(1000);
        player.reset();
    }
};

} // namespace

TEST_F(SpeechPlayerTest, ReportsClipsInTheirOrder) {
    play(1, "1000");
    play(2, "10");
    play(3, "0");
    play(4, "100");
    EXPECT_TRUE(player->hasPending());
    EXPECT_TRUE(speakUntil([&] { return played.size() == 4; }));
    EXPECT_THAT(played, ElementsAre(1, 2, 3, 4));
    EXPECT_FALSE(player->hasPending());
    EXPECT_TRUE(player->isQuiet());
    EXPECT_GE(quiets, 1);
}

TEST_F(SpeechPlayerTest, AStopReportsEveryPendingClipOnceAndTheirEndsAreSilent) {
    play(1, "100000");
    play(2, "100000");
    play(3, "100000");
    EXPECT_TRUE(speakUntil([&] { return fill(480).front() == 0.5F; }));
    player->stop();
    EXPECT_THAT(played, UnorderedElementsAre(1, 2, 3));
    EXPECT_FALSE(player->hasPending());
    EXPECT_TRUE(speakUntil([&] { return player->isQuiet(); }));
    EXPECT_EQ(played.size(), 3U);
}

TEST_F(SpeechPlayerTest, AStopWithNothingToStopReportsNothing) {
    player->stop();
    EXPECT_THAT(played, IsEmpty());
}

TEST_F(SpeechPlayerTest, AClipThatWasHeardBeforeAStopIsReportedByItsEndOnly) {
    play(1, "100");
    EXPECT_TRUE(speakUntil([&] { return played.size() == 1; }));
    player->stop();
    EXPECT_THAT(played, ElementsAre(1));
}

TEST_F(SpeechPlayerTest, AClipThatEndedButWasNotCollectedBeforeAStopIsReportedOnce) {
    play(1, "100");
    EXPECT_TRUE(speakUntil([&] { return fill(1).front() == 0.5F; }, 1));
    fill(200);
    mixer.heard(position);
    player->stop();
    player->collect();
    EXPECT_THAT(played, ElementsAre(1));
}

TEST_F(SpeechPlayerTest, AnIdThatComesAgainAfterAStopIsAClipOfItsOwn) {
    play(1, "100000");
    EXPECT_TRUE(speakUntil([&] { return fill(480).front() == 0.5F; }));
    player->stop();
    play(1, "100");
    EXPECT_TRUE(player->hasPending());
    EXPECT_TRUE(speakUntil([&] { return player->isQuiet(); }));
    EXPECT_THAT(played, ElementsAre(1, 1));
}

TEST_F(SpeechPlayerTest, AClipThatWasStoppedDoesNotReportTheNextOneOfTheSameId) {
    play(1, "100000");
    EXPECT_TRUE(speakUntil([&] { return fill(1).front() == 0.5F; }));
    player->stop();
    play(1, "100000");
    fill(480); // cuts the first one off
    player->collect();
    EXPECT_THAT(played, ElementsAre(1));
    EXPECT_TRUE(player->hasPending());
    EXPECT_TRUE(speakUntil([&] { return player->isQuiet(); }));
    EXPECT_THAT(played, ElementsAre(1, 1));
}

TEST_F(SpeechPlayerTest, EveryClipWithOneIdIsReportedAtItsOwnEnd) {
    play(7, "100");
    play(7, "nonsense");
    play(7, "200");
    play(8, "10");
    EXPECT_TRUE(speakUntil([&] { return player->isQuiet(); }));
    EXPECT_THAT(played, ElementsAre(7, 7, 8));
    EXPECT_EQ(failureCount(), 1U);
}

TEST_F(SpeechPlayerTest, AStopReportsAnIdAsOftenAsItIsPending) {
    play(7, "100000");
    play(7, "100000");
    player->stop();
    EXPECT_THAT(played, ElementsAre(7, 7));
}

TEST_F(SpeechPlayerTest, ClipsOfTwoConnectionsWithOneNumberAreTwoClips) {
    std::vector<ClipId> ids;
    player->onPlayed = [&](ClipId id) { ids.push_back(id); };
    player->play({7, 2}, "100", QStringLiteral("mp3"));
    player->play({7, 1}, "100", QStringLiteral("mp3"));
    EXPECT_TRUE(speakUntil([&] { return player->isQuiet(); }));
    EXPECT_THAT(ids, ElementsAre(ClipId{7, 2}, ClipId{7, 1}));
}

TEST_F(SpeechPlayerTest, TheLocalChimeIsNeverReportedWhenItEndsOrIsStopped) {
    play(-1, "100");
    EXPECT_TRUE(speakUntil([&] { return player->isQuiet(); }));
    play(-1, "100000");
    player->stop();
    EXPECT_TRUE(speakUntil([&] { return player->isQuiet(); }));
    EXPECT_THAT(played, IsEmpty());
}

TEST_F(SpeechPlayerTest, AClipThatCannotBeDecodedFailsAtOnceAndHoldsNobodyUp) {
    play(1, "nonsense");
    EXPECT_TRUE(speakUntil([&] { return failureCount() == 1; }));
    EXPECT_EQ(failures.front(), std::pair(qint64{1}, QStringLiteral("no mp3")));
    EXPECT_FALSE(player->hasPending());
    play(2, "10");
    EXPECT_TRUE(speakUntil([&] { return played.size() == 1; }));
    EXPECT_THAT(played, ElementsAre(2));
}

TEST_F(SpeechPlayerTest, AThousandClipsAtOnceAreAllPlayedInOrder) {
    std::vector<qint64> expected;
    for (qint64 id = 0; id < 1000; ++id) {
        play(id, id % 3 == 0 ? "0" : "77");
        expected.push_back(id);
    }
    EXPECT_TRUE(speakUntil([&] { return played.size() == 1000; }));
    EXPECT_EQ(played, expected);
}

TEST_F(SpeechPlayerTest, RefusesAClipWhileTooMuchWaits) {
    const QByteArray large(100 * 1024 * 1024, ' ');
    player->play({1}, "20000000", QString()); // 80 MB decoded: the next ones wait for its turn
    EXPECT_TRUE(speakUntil([&] { return fill(1).front() == 0.5F; }));
    player->play({2}, "20000000", QString());
    for (qint64 id = 3; id < 8; ++id)
        player->play({id}, large, QString());
    ASSERT_GE(failureCount(), 1U);
    EXPECT_EQ(failures.back().first, 7);
    player->stop();
    EXPECT_EQ(played.size() + failureCount(), 7U);
}

TEST_F(HeldDecoding, AClipIsPendingFromTheMomentItComesAndAStopReportsItUndecoded) {
    play(1, "100");
    play(2, "100");
    isDecoding.acquire();
    player->stop();
    EXPECT_THAT(played, UnorderedElementsAre(1, 2));
    mayDecode.release(10);
    play(3, "100");
    EXPECT_TRUE(speakUntil([&] { return played.size() == 3; }));
    EXPECT_THAT(played.back(), 3);
    EXPECT_TRUE(player->isQuiet());
}

TEST_F(HeldDecoding, AClipThatWasStoppedDoesNotFailAsWell) {
    play(1, "nonsense");
    isDecoding.acquire();
    player->stop();
    mayDecode.release(10);
    play(2, "100");
    EXPECT_TRUE(speakUntil([&] { return played.size() == 2; }));
    EXPECT_THAT(played, ElementsAre(1, 2));
    EXPECT_EQ(failureCount(), 0U);
}

TEST(SpeechThreads, NeverReportAClipTwiceOrNotAtAllWhileStopsAndEndsMeet) {
    SpeechMixer mixer;
    SpeechPlayer player(mixer, &test::decodeNumber);
    std::mutex mutex;
    std::map<qint64, int> reports;
    player.onPlayed = [&](ClipId id) {
        const std::lock_guard guard(mutex);
        ++reports[id.number];
    };
    player.onFailed = [&](ClipId id, const QString &) {
        const std::lock_guard guard(mutex);
        ++reports[id.number];
    };
    player.onQuiet = [] {};

    std::atomic<bool> isOver{false};
    std::thread speakers([&] {
        std::vector<float> samples(480);
        std::int64_t position = 0;
        while (!isOver) {
            mixer.fill(samples);
            position += 480;
            mixer.heard(position);
        }
    });
    std::thread collecting([&] {
        while (!isOver)
            player.collect();
    });
    constexpr qint64 clips = 2000;
    for (qint64 id = 0; id < clips; ++id) {
        player.play({id}, id % 7 == 0 ? "nonsense" : "333", QStringLiteral("mp3"));
        if (id % 13 == 0)
            player.stop();
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!player.isQuiet() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    isOver = true;
    speakers.join();
    collecting.join();
    EXPECT_EQ(reports.size(), static_cast<std::size_t>(clips));
    for (const auto &[id, count] : reports)
        EXPECT_EQ(count, 1) << id;
}
