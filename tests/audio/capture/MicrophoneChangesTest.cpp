#include "tests/audio/AudioIOTest.h"

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::AudioIOTest;
using test::changed;
using test::openA;
using test::openB;
using test::switchedOff;
using test::switchedToB;
using testing::ElementsAre;
using testing::IsEmpty;

// Changes from outside.

TEST_F(AudioIOTest, AConfigurationChangeIsNotedAndReopensTheMicrophoneOnce) {
    io.start({});
    server.defaultId = u"mic.b"_s;
    server.change();
    EXPECT_THAT(notes, ElementsAre(openA, changed, openB));
    EXPECT_EQ(server.captureOpenings, 2);
    EXPECT_EQ(calls.created, 2);
    EXPECT_EQ(calls.alive, 1);
}

TEST_F(AudioIOTest, AConfigurationChangeWhoseReopeningFailsIsNotTriedAgain) {
    io.start({});
    server.captureFailure = Failure{u"busy"_s};
    server.change();
    scheduler.advance(1min);
    EXPECT_EQ(server.captureOpenings, 2);
    EXPECT_THAT(notes, ElementsAre(openA, changed));
    server.captureFailure.reset();
    server.change();
    EXPECT_TRUE(server.isCaptureOpen());
}

TEST_F(AudioIOTest, AConfigurationChangeBeforeTheStartDoesNothing) {
    server.change();
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_EQ(server.captureOpenings, 0);
}

TEST_F(AudioIOTest, TheMicrophoneIsBackAfterTheSoundServersDeath) {
    io.start(u"Mic B"_s);
    server.die();
    EXPECT_FALSE(server.isCaptureOpen());
    server.defaultId = u"mic.a"_s;
    server.comeBack();
    EXPECT_TRUE(server.isCaptureOpen());
    EXPECT_THAT(notes, ElementsAre(switchedToB, openB, changed, switchedToB, openB));
    io.restoreDefaultInput();
    EXPECT_EQ(server.defaultId, u"mic.a"_s);
    EXPECT_TRUE(server.isPlaybackOpen());
}

TEST_F(AudioIOTest, AnAttemptThatTheSoundServersDeathEndsIsAnsweredOnce) {
    server.opensAtOnce = false;
    io.start({}, counted());
    server.die();
    EXPECT_EQ(ended, 1);
    server.opensAtOnce = true;
    server.comeBack();
    EXPECT_TRUE(server.isCaptureOpen());
    EXPECT_EQ(ended, 1);
}

TEST_F(AudioIOTest, TheMicrophoneIsFoundWhenItIsPluggedInWhileTryingAgain) {
    server.devices.clear();
    server.defaultId.reset();
    server.captureFailure = Failure{u"no microphone"_s};
    io.start({});
    scheduler.advance(10s);
    server.devices = {{u"mic.b"_s, u"Mic B"_s}};
    server.defaultId = u"mic.b"_s;
    server.captureFailure.reset();
    server.change();
    EXPECT_EQ(io.deviceName(), u"Mic B"_s);
    const int openings = server.captureOpenings;
    scheduler.advance(1min);
    EXPECT_EQ(server.captureOpenings, openings);
}

TEST_F(AudioIOTest, EachConfigurationBeginsWithAFreshResampler) {
    io.start({});
    std::vector<std::vector<std::int16_t>> heard;
    io.onPCM = [&](PcmSamples samples) { heard.emplace_back(samples.begin(), samples.end()); };
    for (int configuration = 0; configuration < 2; ++configuration) {
        server.change();
        server.deliver(std::vector<float>(1500, 0.5F));
    }
    ASSERT_EQ(heard.size(), 2U);
    EXPECT_EQ(heard[0], heard[1]);
    EXPECT_EQ(heard[0].front(), 0);
}

// Off and on again.

TEST_F(AudioIOTest, ShuttingDownReleasesTheMicrophoneAndPutsTheDefaultBack) {
    io.start(u"Mic B"_s);
    notes.clear();
    io.shutdown();
    EXPECT_FALSE(server.isCaptureOpen());
    EXPECT_FALSE(server.isPlaybackOpen());
    EXPECT_EQ(calls.alive, 0);
    EXPECT_EQ(server.defaultId, u"mic.a"_s);
    io.restoreDefaultInput();
    EXPECT_THAT(server.defaultsSet, ElementsAre(u"mic.b"_s, u"mic.a"_s));
    EXPECT_THAT(notes, ElementsAre(switchedOff));
}

TEST_F(AudioIOTest, AConfigurationChangeWhileShutDownIsNotedButOpensNothing) {
    io.start({});
    io.shutdown();
    server.change();
    EXPECT_THAT(notes, ElementsAre(openA, switchedOff, changed));
    EXPECT_FALSE(server.isCaptureOpen());
    EXPECT_EQ(server.captureOpenings, 1);
}

TEST_F(AudioIOTest, ShuttingDownEndsTheTryingAgain) {
    server.captureFailure = Failure{u"busy"_s};
    io.start({});
    io.shutdown();
    scheduler.advance(1min);
    EXPECT_EQ(server.captureOpenings, 1);
}

TEST_F(AudioIOTest, ShuttingDownDuringAnAttemptAnswersWhoWaitsForIt) {
    server.opensAtOnce = false;
    io.start({}, counted());
    io.use(u"Mic B"_s, counted());
    io.shutdown();
    EXPECT_EQ(ended, 2);
    server.finishOpening({});
    EXPECT_FALSE(server.isCaptureOpen());
    EXPECT_THAT(configured, IsEmpty());
}

TEST_F(AudioIOTest, WhileShutDownUseOnlyKeepsTheNameAndIsAnswered) {
    io.start({});
    io.shutdown();
    io.use(u"Mic B"_s, counted());
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(server.captureOpenings, 1);
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    io.resume();
    EXPECT_EQ(io.deviceName(), u"Mic B"_s);
}

TEST_F(AudioIOTest, ResumingOpensTheMicrophoneAgainTryingUntilItIsOpen) {
    io.start({});
    io.shutdown();
    server.captureFailure = Failure{u"busy"_s};
    io.resume();
    server.captureFailure.reset();
    scheduler.advance(2s);
    EXPECT_TRUE(server.isCaptureOpen());
}

TEST_F(AudioIOTest, ResumingWithoutAShutdownDoesNothing) {
    io.start({});
    io.resume();
    EXPECT_EQ(server.captureOpenings, 1);
    EXPECT_THAT(notes, ElementsAre(openA));
}

TEST_F(AudioIOTest, AMicrophoneStartedWhileShutDownStaysClosed) {
    io.shutdown();
    io.start({}, counted());
    EXPECT_EQ(server.captureOpenings, 0);
    EXPECT_EQ(ended, 1);
}
