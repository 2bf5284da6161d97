#include "tests/audio/AudioIOTest.h"

using namespace palomet;
using namespace std::chrono_literals;
using test::AudioIOTest;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST_F(AudioIOTest, SpeechThatNothingPlaysIsGivenUpAfterFiveSeconds) {
    server.isAlive = false;
    io.start({});
    notes.clear();
    io.play({1}, "1000", QStringLiteral("mp3"));
    io.play({2}, "1000", QStringLiteral("mp3"));
    scheduler.advance(4s);
    EXPECT_THAT(played, IsEmpty());
    scheduler.advance(1s);
    EXPECT_THAT(played, UnorderedElementsAre(1, 2));
    EXPECT_TRUE(notes.contains(QStringLiteral("áudio: o servidor de som não toca nada; falas abandonadas")));
}

TEST_F(AudioIOTest, ALongClipIsNotGivenUpWhileItPlays) {
    io.start({});
    io.play({1}, "4800000", QStringLiteral("mp3"));
    EXPECT_TRUE(speakers.playUntilSound());
    for (int second = 0; second < 60; ++second) {
        speakers.pull(48000);
        speakers.hearAll();
        scheduler.advance(1s);
    }
    EXPECT_THAT(played, IsEmpty());
}

TEST_F(AudioIOTest, NothingTicksWhenThereIsNothingToSay) {
    io.start({});
    io.play({1}, "10", QStringLiteral("mp3"));
    EXPECT_EQ(scheduler.pendingCount(), 1U);
    EXPECT_TRUE(speakers.speakUntil([&] { return !played.empty(); }));
    scheduler.advance(1s);
    EXPECT_EQ(scheduler.pendingCount(), 0U);
}
