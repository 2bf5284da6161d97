#include "tests/audio/AudioIOTest.h"

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::AudioIOTest;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// Speech.

TEST_F(AudioIOTest, TheSpeakersAreOpenAsLongAsTheMicrophoneIs) {
    EXPECT_FALSE(server.isPlaybackOpen());
    io.start({});
    EXPECT_TRUE(server.isPlaybackOpen());
    server.change();
    EXPECT_EQ(server.playbackOpenings, 1);
    io.shutdown();
    EXPECT_FALSE(server.isPlaybackOpen());
}

TEST_F(AudioIOTest, TwoClipsAreHeardWithoutAGapAndReportedInOrder) {
    io.start({});
    io.play({1}, "1000", u"mp3"_s);
    io.play({2}, "1000", u"mp3"_s);
    EXPECT_TRUE(speakers.speakUntil([&] { return played.size() == 2; }));
    EXPECT_THAT(played, ElementsAre(1, 2));
}

TEST_F(AudioIOTest, SpeechPlaysWithoutAMicrophoneAndClosesTheSpeakersBehindIt) {
    server.captureFailure = Failure{u"no microphone"_s};
    io.start({});
    EXPECT_FALSE(server.isPlaybackOpen());
    io.play({1}, "1000", u"mp3"_s);
    EXPECT_TRUE(server.isPlaybackOpen());
    EXPECT_TRUE(speakers.speakUntil([&] { return !server.isPlaybackOpen(); }));
    EXPECT_THAT(played, ElementsAre(1));
    EXPECT_EQ(server.playbackOpenings, 1);
}

TEST_F(AudioIOTest, SpeechGoesOnWhenTheMicrophoneIsReleased) {
    io.start({});
    io.play({1}, "10000", u"mp3"_s);
    EXPECT_TRUE(speakers.playUntilSound());
    io.shutdown();
    EXPECT_TRUE(server.isPlaybackOpen());
    EXPECT_TRUE(speakers.isSounding());
    EXPECT_TRUE(speakers.speakUntil([&] { return !server.isPlaybackOpen(); }));
    EXPECT_THAT(played, ElementsAre(1));
}

TEST_F(AudioIOTest, SpeechGoesOnWhenTheMicrophoneIsReconfigured) {
    io.start({});
    io.play({1}, "100000", u"mp3"_s);
    EXPECT_TRUE(speakers.playUntilSound());
    server.change();
    EXPECT_TRUE(speakers.isSounding());
    EXPECT_THAT(played, IsEmpty());
}

TEST_F(AudioIOTest, TheSpeakersStayOpenWhenSpeechEndsWhileTheMicrophoneIsReconfigured) {
    io.start({});
    io.play({1}, "1000", u"mp3"_s);
    EXPECT_TRUE(speakers.playUntilSound());
    server.opensAtOnce = false;
    server.change();
    EXPECT_TRUE(speakers.speakUntil([&] { return !played.empty(); }));
    io.play({2}, "nonsense", u"mp3"_s); // its end is told behind the other's
    EXPECT_TRUE(test::eventually([&] { return played.size() == 2; }));
    EXPECT_TRUE(server.isPlaybackOpen());
    server.finishOpening({});
    EXPECT_EQ(server.playbackOpenings, 1);
}

TEST_F(AudioIOTest, AStopReportsEveryPendingClipOnce) {
    io.start({});
    io.play({1}, "100000", u"mp3"_s);
    io.play({2}, "100000", u"mp3"_s);
    EXPECT_TRUE(speakers.playUntilSound());
    io.stop();
    EXPECT_THAT(played, UnorderedElementsAre(1, 2));
    speakers.isSounding(); // the fade
    EXPECT_FALSE(speakers.isSounding());
    io.play({3}, "10", u"mp3"_s);
    EXPECT_TRUE(speakers.speakUntil([&] { return played.size() == 3; }));
    EXPECT_THAT(played.back(), 3);
}

TEST_F(AudioIOTest, AClipThatCannotBePlayedIsNotedAndReportedAtOnce) {
    io.start({});
    notes.clear();
    io.play({12}, "nonsense", u"../x"_s);
    EXPECT_TRUE(test::eventually([&] { return !played.empty(); }));
    EXPECT_THAT(played, ElementsAre(12));
    EXPECT_THAT(notes, ElementsAre(u"áudio: não consegui tocar a fala 12 (no ../x)"_s));
}

TEST_F(AudioIOTest, TheChimeIsPlayedAndNotReported) {
    QFile file(chimeFile);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1000");
    file.close();
    io.start({});
    io.chime();
    EXPECT_TRUE(speakers.playUntilSound());
    io.play({1}, "10", u"mp3"_s);
    EXPECT_TRUE(speakers.speakUntil([&] { return !played.empty(); }));
    EXPECT_THAT(played, ElementsAre(1));
}

TEST_F(AudioIOTest, AChimeThatCannotBeReadDoesNothing) {
    io.start({});
    notes.clear();
    io.chime();
    EXPECT_EQ(scheduler.pendingCount(), 0U);
    EXPECT_THAT(notes, IsEmpty());
}

TEST_F(AudioIOTest, AChimeThatCannotBePlayedIsReported) {
    QFile file(chimeFile);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("nonsense");
    file.close();
    io.chime();
    EXPECT_TRUE(test::eventually([&] { return !played.empty(); }));
    EXPECT_THAT(played, ElementsAre(-1));
    EXPECT_THAT(notes, ElementsAre(u"áudio: não consegui tocar a fala -1 (no aiff)"_s));
}

TEST_F(AudioIOTest, ASoundServerThatDiesAbandonsThePendingClipsEachReportedOnce) {
    io.start({});
    io.play({1}, "100000", u"mp3"_s);
    io.play({2}, "100000", u"mp3"_s);
    EXPECT_TRUE(speakers.playUntilSound());
    server.die();
    EXPECT_THAT(played, UnorderedElementsAre(1, 2));
    server.comeBack();
    speakers.given.clear();
    EXPECT_TRUE(server.isPlaybackOpen());
    EXPECT_TRUE(speakers.speakUntil([&] { return !speakers.isSounding(); }));
    io.play({3}, "1000", u"mp3"_s);
    EXPECT_TRUE(speakers.speakUntil([&] { return played.size() == 3; }));
    EXPECT_THAT(played.back(), 3);
}

TEST_F(AudioIOTest, AClipThatComesWhileTheSoundServerIsAwayPlaysWhenItIsBack) {
    io.start({});
    io.shutdown();
    server.die();
    io.play({1}, "1000", u"mp3"_s);
    scheduler.advance(2s);
    server.comeBack();
    EXPECT_TRUE(server.isPlaybackOpen());
    EXPECT_TRUE(speakers.speakUntil([&] { return !played.empty(); }));
    EXPECT_THAT(played, ElementsAre(1));
}

TEST_F(AudioIOTest, WhatTheMicrophoneIsFreedOfIsExactlyWhatTheSpeakersGot) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    io.play({1}, "1000", u"mp3"_s);
    EXPECT_TRUE(test::eventually([&] {
        const bool isSounding = speakers.isSounding();
        server.deliver(std::vector<float>(480, 0.0F));
        return isSounding;
    }));
    for (int i = 0; i < 4; ++i) {
        speakers.pull();
        server.deliver(std::vector<float>(480, 0.0F));
    }
    std::vector<float> references;
    for (std::size_t i = 1; i < calls.references.size(); ++i)
        references.insert(references.end(), calls.references[i].begin(), calls.references[i].end());
    EXPECT_EQ(references, speakers.given);
    EXPECT_EQ(std::count(references.begin(), references.end(), 0.5F), 1000);
}

// The echo canceller.

TEST_F(AudioIOTest, OtherDevicesMeetACancellerAndAReferenceThatKnowNothing) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    playUnheard();
    server.change();
    expectNewCanceller();
    expectSilentReference();
}

TEST_F(AudioIOTest, AnotherInputMeetsACancellerAndAReferenceThatKnowNothing) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    playUnheard();
    io.use(u"Mic B"_s);
    expectNewCanceller();
    expectSilentReference();
}

TEST_F(AudioIOTest, ASoundServerThatReturnsMeetsACancellerAndAReferenceThatKnowNothing) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    playUnheard();
    server.die();
    server.comeBack();
    expectNewCanceller();
    expectSilentReference();
}

TEST_F(AudioIOTest, AMicrophoneThatWasReleasedMeetsACancellerAndAReferenceThatKnowNothing) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    io.shutdown();
    playUnheard();
    io.resume();
    expectNewCanceller();
    expectSilentReference();
}

TEST_F(AudioIOTest, TellsTheEchoCancellerByHowMuchTheEchoWasTurnedWhileThereIsOne) {
    server.turn(3);
    io.start({});
    server.turn(0.5F);
    server.turn(2);
    io.shutdown();
    server.turn(4);
    EXPECT_THAT(calls.turned, testing::ElementsAre(0.5F, 2));
}
