#include "tests/audio/AudioIOTest.h"

using namespace palomet;
using namespace std::chrono_literals;
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
    server.defaultId = QStringLiteral("mic.b");
    server.change();
    EXPECT_THAT(notes, ElementsAre(openA, changed, openB));
    EXPECT_EQ(server.captureOpenings, 2);
    EXPECT_EQ(calls.created, 2);
    EXPECT_EQ(calls.alive, 1);
}

TEST_F(AudioIOTest, AConfigurationChangeWhoseReopeningFailsIsNotTriedAgain) {
    io.start({});
    server.captureFailure = Failure{QStringLiteral("busy")};
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
    io.start(QStringLiteral("Mic B"));
    server.die();
    EXPECT_FALSE(server.isCaptureOpen());
    server.defaultId = QStringLiteral("mic.a");
    server.comeBack();
    EXPECT_TRUE(server.isCaptureOpen());
    EXPECT_THAT(notes, ElementsAre(switchedToB, openB, changed, switchedToB, openB));
    EXPECT_EQ(io.originalDefaultInput(), QStringLiteral("mic.a"));
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
    server.captureFailure = Failure{QStringLiteral("no microphone")};
    io.start({});
    scheduler.advance(10s);
    server.devices = {{QStringLiteral("mic.b"), QStringLiteral("Mic B")}};
    server.defaultId = QStringLiteral("mic.b");
    server.captureFailure.reset();
    server.change();
    EXPECT_EQ(io.deviceName(), QStringLiteral("Mic B"));
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
    io.start(QStringLiteral("Mic B"));
    notes.clear();
    io.shutdown();
    EXPECT_FALSE(server.isCaptureOpen());
    EXPECT_FALSE(server.isPlaybackOpen());
    EXPECT_EQ(calls.alive, 0);
    EXPECT_EQ(server.defaultId, QStringLiteral("mic.a"));
    EXPECT_EQ(io.originalDefaultInput(), std::nullopt);
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
    server.captureFailure = Failure{QStringLiteral("busy")};
    io.start({});
    io.shutdown();
    scheduler.advance(1min);
    EXPECT_EQ(server.captureOpenings, 1);
}

TEST_F(AudioIOTest, ShuttingDownDuringAnAttemptAnswersWhoWaitsForIt) {
    server.opensAtOnce = false;
    io.start({}, counted());
    io.use(QStringLiteral("Mic B"), counted());
    io.shutdown();
    EXPECT_EQ(ended, 2);
    server.finishOpening({});
    EXPECT_FALSE(io.isShutDown() && server.isCaptureOpen());
    EXPECT_THAT(configured, IsEmpty());
}

TEST_F(AudioIOTest, WhileShutDownUseOnlyKeepsTheNameAndIsAnswered) {
    io.start({});
    io.shutdown();
    io.use(QStringLiteral("Mic B"), counted());
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(server.captureOpenings, 1);
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    io.resume();
    EXPECT_EQ(io.deviceName(), QStringLiteral("Mic B"));
}

TEST_F(AudioIOTest, ResumingOpensTheMicrophoneAgainTryingUntilItIsOpen) {
    io.start({});
    io.shutdown();
    server.captureFailure = Failure{QStringLiteral("busy")};
    io.resume();
    EXPECT_FALSE(io.isShutDown());
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
