#include "audio/AudioIO.h"

#include "tests/support/Eventually.h"
#include "tests/support/FakeEchoCanceller.h"
#include "tests/support/FakeSoundServer.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/QueuedWakeup.h"
#include "tests/support/Speakers.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

const QString openA = QStringLiteral("áudio: microfone Mic A com cancelamento de eco");
const QString openB = QStringLiteral("áudio: microfone Mic B com cancelamento de eco");
const QString switchedToB =
    QStringLiteral("áudio: entrada padrão do macOS agora é Mic B (volta à anterior quando o app fecha)");
const QString changed = QStringLiteral("áudio: dispositivos mudaram; reabrindo");
const QString defaultInput = QStringLiteral("the usual microphone");
const QString switchedOff = QStringLiteral("áudio: cancelamento de eco desligado na tela Escuta");

struct AudioIOTest : testing::Test {
    test::FakeSoundServer server;
    test::Speakers speakers{server};
    test::ManualScheduler scheduler;
    test::EchoCancellerCalls calls;
    std::optional<Failure> cancellerFailure;
    QTemporaryDir folder;
    QString chimeFile = folder.filePath(QStringLiteral("chime.aiff"));

    QStringList notes;
    QStringList configured;
    QStringList names;
    std::vector<qint64> played;
    std::size_t chunks = 0;
    int ended = 0;

    AudioIO io{{.server = server,
                .scheduler = scheduler,
                .makeWakeup = &test::QueuedWakeup::make,
                .makeEchoCanceller = [this]() -> Result<std::unique_ptr<EchoCanceller>> {
                    if (cancellerFailure)
                        return *cancellerFailure;
                    return std::unique_ptr<EchoCanceller>(std::make_unique<test::FakeEchoCanceller>(calls));
                },
                .decode = &test::decodeNumber,
                .chimeFile = chimeFile,
                .defaultInputName = defaultInput}};

    AudioIOTest() {
        io.onNote = [this](const QString &note) { notes.push_back(note); };
        io.onConfigured = [this](const QString &name) { configured.push_back(name); };
        io.onDeviceName = [this](const QString &name) { names.push_back(name); };
        io.onPlayed = [this](ClipId id) { played.push_back(id.number); };
        io.onPCM = [this](PcmSamples) { ++chunks; };
        io.startReporting();
    }
    ~AudioIOTest() override {
        io.close();
        io.stopReporting();
    }

    [[nodiscard]] std::optional<bool> converged() const {
        const auto state = io.echoCancellerState();
        return state ? std::optional(state->isConverged) : std::nullopt;
    }

    /// Speech goes to the speakers that the microphone has not been compared with yet.
    void playUnheard() {
        io.play({1}, "48000", QStringLiteral("mp3"));
        EXPECT_TRUE(test::eventually([this] { return speakers.isSounding(); }));
        speakers.pull();
    }

    void expectSilentReference() {
        calls.references.clear();
        server.deliver(std::vector<float>(480, 0.0F));
        EXPECT_THAT(calls.references, ElementsAre(std::vector<float>(480, 0.0F)));
    }

    AudioIO::Ended counted() {
        return [this] { ++ended; };
    }
};

} // namespace

// The microphone.

TEST_F(AudioIOTest, OpensTheDefaultInputWithEchoCancellation) {
    io.start({}, counted());
    EXPECT_TRUE(server.isCaptureOpen());
    EXPECT_THAT(notes, ElementsAre(openA));
    EXPECT_THAT(configured, ElementsAre(QStringLiteral("Mic A")));
    EXPECT_EQ(io.deviceName(), QStringLiteral("Mic A"));
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    EXPECT_EQ(ended, 1);
    server.deliver(std::vector<float>(2048, 0.1F));
    EXPECT_EQ(chunks, 1U); // 1920 of 2048 samples are whole frames
}

TEST_F(AudioIOTest, SaysNothingBeforeTheMicrophoneIsOpen) {
    server.opensAtOnce = false;
    io.start({}, counted());
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_EQ(ended, 0);
    server.finishOpening({});
    EXPECT_THAT(notes, ElementsAre(openA));
    EXPECT_EQ(ended, 1);
}

TEST_F(AudioIOTest, SwitchesTheDefaultInputToTheWantedDevice) {
    io.start(QStringLiteral("Mic B"));
    EXPECT_THAT(server.defaultsSet, ElementsAre(QStringLiteral("mic.b")));
    EXPECT_THAT(notes, ElementsAre(switchedToB, openB));
    EXPECT_EQ(io.originalDefaultInput(), QStringLiteral("mic.a"));
}

TEST_F(AudioIOTest, NamesTheDeviceThatIsBeingOpened) {
    server.opensAtOnce = false;
    io.start({});
    EXPECT_EQ(io.deviceName(), QStringLiteral("Mic A"));
    server.finishOpening({});
    io.use(QStringLiteral("Mic B"));
    EXPECT_EQ(io.deviceName(), QStringLiteral("Mic B"));
}

TEST_F(AudioIOTest, NamesTheDeviceAsSoonAsTheServerHasToldItsDevices) {
    server.opensAtOnce = false;
    server.hasToldDevices = false;
    io.start({});
    EXPECT_THAT(names, ElementsAre(defaultInput));
    server.tellDevices();
    EXPECT_EQ(io.deviceName(), QStringLiteral("Mic A"));
    EXPECT_THAT(names, ElementsAre(defaultInput, QStringLiteral("Mic A")));
    EXPECT_EQ(server.captureOpenings, 1);
}

TEST_F(AudioIOTest, SwitchesToTheWantedDeviceAsSoonAsTheServerHasToldItsDevices) {
    server.opensAtOnce = false;
    server.hasToldDevices = false;
    io.start(QStringLiteral("Mic B"));
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    server.tellDevices();
    EXPECT_EQ(io.deviceName(), QStringLiteral("Mic B"));
    server.finishOpening({});
    EXPECT_THAT(server.defaultsSet, ElementsAre(QStringLiteral("mic.b")));
    EXPECT_THAT(notes, ElementsAre(switchedToB, openB));
}

TEST_F(AudioIOTest, DevicesThatAreToldWhileNothingIsOpenedChangeNothing) {
    server.hasToldDevices = false;
    server.tellDevices();
    EXPECT_THAT(names, IsEmpty());
    EXPECT_THAT(server.defaultsSet, IsEmpty());
}

TEST_F(AudioIOTest, NamesTheDeviceItSwitchedToWhateverTheServerStillBelieves) {
    server.opensAtOnce = false;
    io.start(QStringLiteral("Mic B"));
    server.defaultId = QStringLiteral("mic.a");
    server.finishOpening({});
    EXPECT_EQ(io.deviceName(), QStringLiteral("Mic B"));
}

TEST_F(AudioIOTest, NeverSwitchesTheDefaultInputWhenItMayNotSelect) {
    io.selectsDevice = false;
    io.start(QStringLiteral("Mic B"));
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    EXPECT_THAT(notes, ElementsAre(openA));
    io.use(QStringLiteral("Mic B"));
    EXPECT_THAT(server.defaultsSet, IsEmpty());
}

TEST_F(AudioIOTest, AWantedDeviceThatIsTheDefaultAlreadyIsNeitherSwitchedToNorNoted) {
    io.start(QStringLiteral("Mic A"));
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    EXPECT_THAT(notes, ElementsAre(openA));
    EXPECT_EQ(io.originalDefaultInput(), std::nullopt);
}

TEST_F(AudioIOTest, AWantedDeviceThatIsNotPresentLeavesTheDefaultWithoutANote) {
    io.start(QStringLiteral("Mic C"));
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    EXPECT_THAT(notes, ElementsAre(openA));
}

TEST_F(AudioIOTest, PicksADeviceByItsExactNameOnly) {
    EXPECT_EQ(io.pickInput(QStringLiteral("Mic B")), QStringLiteral("Mic B"));
    EXPECT_EQ(io.pickInput(QStringLiteral("mic b")), std::nullopt);
    EXPECT_EQ(io.pickInput(QStringLiteral("Mic")), std::nullopt);
    EXPECT_EQ(io.pickInput(std::nullopt), std::nullopt);
}

TEST_F(AudioIOTest, TakesTheFirstOfTwoDevicesWithOneName) {
    server.devices = {{QStringLiteral("mic.a"), QStringLiteral("Mic A")},
                      {QStringLiteral("first"), QStringLiteral("USB")},
                      {QStringLiteral("second"), QStringLiteral("USB")}};
    io.start(QStringLiteral("USB"));
    EXPECT_THAT(server.defaultsSet, ElementsAre(QStringLiteral("first")));
}

TEST_F(AudioIOTest, RemembersOnlyTheDefaultFromBeforeItsFirstChange) {
    server.devices.push_back({QStringLiteral("mic.c"), QStringLiteral("Mic C")});
    io.start(QStringLiteral("Mic B"));
    io.use(QStringLiteral("Mic C"));
    EXPECT_EQ(io.originalDefaultInput(), QStringLiteral("mic.a"));
    io.restoreDefaultInput();
    EXPECT_EQ(server.defaultId, QStringLiteral("mic.a"));
    EXPECT_EQ(io.originalDefaultInput(), std::nullopt);
    io.restoreDefaultInput();
    EXPECT_THAT(server.defaultsSet,
                ElementsAre(QStringLiteral("mic.b"), QStringLiteral("mic.c"), QStringLiteral("mic.a")));
}

TEST_F(AudioIOTest, LeavesTheDefaultAloneWhenTheOriginalOneHasGone) {
    io.start(QStringLiteral("Mic B"));
    server.devices.erase(server.devices.begin());
    io.restoreDefaultInput();
    EXPECT_EQ(server.defaultId, QStringLiteral("mic.b"));
    EXPECT_EQ(io.originalDefaultInput(), std::nullopt);
}

TEST_F(AudioIOTest, SwitchesFromNoDefaultAndHasNothingToPutBack) {
    server.defaultId.reset();
    io.start(QStringLiteral("Mic B"));
    EXPECT_THAT(server.defaultsSet, ElementsAre(QStringLiteral("mic.b")));
    io.restoreDefaultInput();
    EXPECT_EQ(server.defaultId, QStringLiteral("mic.b"));
}

TEST_F(AudioIOTest, NamesADefaultThatCannotBeReadByTheLocalizedWords) {
    server.defaultId.reset();
    io.start({});
    EXPECT_EQ(io.deviceName(), defaultInput);
    server.defaultId = QStringLiteral("nobody knows");
    server.change();
    EXPECT_EQ(io.deviceName(), defaultInput);
}

// Trying again.

TEST_F(AudioIOTest, NotesAMicrophoneThatDoesNotOpenOnAttempts1And15And30And45Only) {
    server.captureFailure = Failure{QStringLiteral("no microphone")};
    io.start({}, counted());
    const QString note = QStringLiteral(
        "áudio: não consegui abrir o microfone com cancelamento de eco (no microphone); tentando de novo");
    std::vector<int> noted;
    for (int attempt = 1; attempt <= 46; ++attempt) {
        EXPECT_EQ(server.captureOpenings, attempt);
        if (!notes.isEmpty()) {
            EXPECT_EQ(notes.takeFirst(), note);
            noted.push_back(attempt);
        }
        EXPECT_TRUE(notes.isEmpty());
        scheduler.advance(1999ms);
        EXPECT_EQ(server.captureOpenings, attempt);
        scheduler.advance(1ms);
    }
    EXPECT_THAT(noted, ElementsAre(1, 15, 30, 45));
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(configured, IsEmpty());
}

TEST_F(AudioIOTest, CountsAttemptsFromNothingAgainOnceOneWorked) {
    server.captureFailure = Failure{QStringLiteral("busy")};
    io.start({});
    scheduler.advance(4s);
    server.captureFailure.reset();
    scheduler.advance(2s);
    EXPECT_TRUE(server.isCaptureOpen());
    EXPECT_EQ(server.captureOpenings, 4);
    scheduler.advance(1min);
    EXPECT_EQ(server.captureOpenings, 4);
    notes.clear();
    io.shutdown();
    server.captureFailure = Failure{QStringLiteral("busy")};
    io.resume();
    EXPECT_EQ(notes.size(), 2);
    EXPECT_TRUE(notes.back().startsWith(QStringLiteral("áudio: não consegui abrir")));
}

TEST_F(AudioIOTest, AnEchoCancellerThatCannotBeMadeIsAFailedAttempt) {
    cancellerFailure = Failure{QStringLiteral("no canceller")};
    io.start({}, counted());
    EXPECT_FALSE(server.isCaptureOpen());
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(notes, ElementsAre(QStringLiteral("áudio: não consegui abrir o microfone com cancelamento de eco (no "
                                                  "canceller); tentando de novo")));
    cancellerFailure.reset();
    scheduler.advance(2s);
    EXPECT_TRUE(server.isCaptureOpen());
}

TEST_F(AudioIOTest, UseDropsAnErrorWithoutANoteAndWithoutTryingAgain) {
    io.start({});
    notes.clear();
    server.captureFailure = Failure{QStringLiteral("busy")};
    io.use(QStringLiteral("Mic A"), counted());
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(notes, IsEmpty());
    scheduler.advance(1min);
    EXPECT_EQ(server.captureOpenings, 2);
}

TEST_F(AudioIOTest, AUseThatWorksEndsTheTryingAgain) {
    server.captureFailure = Failure{QStringLiteral("busy")};
    io.start({});
    server.captureFailure.reset();
    io.use(QStringLiteral("Mic B"));
    EXPECT_TRUE(server.isCaptureOpen());
    scheduler.advance(1min);
    EXPECT_EQ(server.captureOpenings, 2);
}

TEST_F(AudioIOTest, AUseThatFailsLeavesTheTryingAgainAsItIs) {
    server.captureFailure = Failure{QStringLiteral("busy")};
    io.start({});
    scheduler.advance(1s);
    io.use(QStringLiteral("Mic A"));
    EXPECT_EQ(server.captureOpenings, 2);
    scheduler.advance(1s);
    EXPECT_EQ(server.captureOpenings, 3);
    scheduler.advance(2s);
    EXPECT_EQ(server.captureOpenings, 4);
}

TEST_F(AudioIOTest, WhatIsAskedForDuringAnAttemptIsAnsweredByOneMoreBehindIt) {
    server.opensAtOnce = false;
    io.start({}, counted());
    io.use(QStringLiteral("Mic A"), counted());
    io.use(QStringLiteral("Mic B"), counted());
    server.change();
    EXPECT_EQ(server.captureOpenings, 1);
    server.finishOpening({});
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(server.captureOpenings, 2);
    server.finishOpening({});
    EXPECT_EQ(ended, 3);
    EXPECT_EQ(server.captureOpenings, 2);
    EXPECT_THAT(notes, ElementsAre(changed, openA, switchedToB, openB));
}

TEST_F(AudioIOTest, AStartThatFailsWhileAUseWaitsIsStillTriedAgain) {
    server.opensAtOnce = false;
    io.start({});
    io.use(QStringLiteral("Mic B"));
    server.finishOpening(Failure{QStringLiteral("busy")});
    server.finishOpening(Failure{QStringLiteral("busy")});
    EXPECT_EQ(server.captureOpenings, 2);
    scheduler.advance(2s);
    EXPECT_EQ(server.captureOpenings, 3);
}

// What changes from outside.

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
    io.play({1}, "1000", QStringLiteral("mp3"));
    io.play({2}, "1000", QStringLiteral("mp3"));
    EXPECT_TRUE(speakers.speakUntil([&] { return played.size() == 2; }));
    EXPECT_THAT(played, ElementsAre(1, 2));
}

TEST_F(AudioIOTest, SpeechPlaysWithoutAMicrophoneAndClosesTheSpeakersBehindIt) {
    server.captureFailure = Failure{QStringLiteral("no microphone")};
    io.start({});
    EXPECT_FALSE(server.isPlaybackOpen());
    io.play({1}, "1000", QStringLiteral("mp3"));
    EXPECT_TRUE(server.isPlaybackOpen());
    EXPECT_TRUE(speakers.speakUntil([&] { return !server.isPlaybackOpen(); }));
    EXPECT_THAT(played, ElementsAre(1));
    EXPECT_EQ(server.playbackOpenings, 1);
}

TEST_F(AudioIOTest, SpeechGoesOnWhenTheMicrophoneIsReleased) {
    io.start({});
    io.play({1}, "10000", QStringLiteral("mp3"));
    EXPECT_TRUE(speakers.playUntilSound());
    io.shutdown();
    EXPECT_TRUE(server.isPlaybackOpen());
    EXPECT_TRUE(speakers.isSounding());
    EXPECT_TRUE(speakers.speakUntil([&] { return !server.isPlaybackOpen(); }));
    EXPECT_THAT(played, ElementsAre(1));
}

TEST_F(AudioIOTest, SpeechGoesOnWhenTheMicrophoneIsReconfigured) {
    io.start({});
    io.play({1}, "100000", QStringLiteral("mp3"));
    EXPECT_TRUE(speakers.playUntilSound());
    server.change();
    EXPECT_TRUE(speakers.isSounding());
    EXPECT_THAT(played, IsEmpty());
}

TEST_F(AudioIOTest, TheSpeakersStayOpenWhenSpeechEndsWhileTheMicrophoneIsReconfigured) {
    io.start({});
    io.play({1}, "1000", QStringLiteral("mp3"));
    EXPECT_TRUE(speakers.playUntilSound());
    server.opensAtOnce = false;
    server.change();
    EXPECT_TRUE(speakers.speakUntil([&] { return !played.empty(); }));
    io.play({2}, "nonsense", QStringLiteral("mp3")); // its end is told behind the other's
    EXPECT_TRUE(test::eventually([&] { return played.size() == 2; }));
    EXPECT_TRUE(server.isPlaybackOpen());
    server.finishOpening({});
    EXPECT_EQ(server.playbackOpenings, 1);
}

TEST_F(AudioIOTest, AStopReportsEveryPendingClipOnce) {
    io.start({});
    io.play({1}, "100000", QStringLiteral("mp3"));
    io.play({2}, "100000", QStringLiteral("mp3"));
    EXPECT_TRUE(speakers.playUntilSound());
    io.stop();
    EXPECT_THAT(played, UnorderedElementsAre(1, 2));
    speakers.isSounding(); // the fade
    EXPECT_FALSE(speakers.isSounding());
    io.play({3}, "10", QStringLiteral("mp3"));
    EXPECT_TRUE(speakers.speakUntil([&] { return played.size() == 3; }));
    EXPECT_THAT(played.back(), 3);
}

TEST_F(AudioIOTest, AClipThatCannotBePlayedIsNotedAndReportedAtOnce) {
    io.start({});
    notes.clear();
    io.play({12}, "nonsense", QStringLiteral("../x"));
    EXPECT_TRUE(test::eventually([&] { return !played.empty(); }));
    EXPECT_THAT(played, ElementsAre(12));
    EXPECT_THAT(notes, ElementsAre(QStringLiteral("áudio: não consegui tocar a fala 12 (no ../x)")));
}

TEST_F(AudioIOTest, TheChimeIsPlayedAndNotReported) {
    QFile file(chimeFile);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1000");
    file.close();
    io.start({});
    io.chime();
    EXPECT_TRUE(speakers.playUntilSound());
    io.play({1}, "10", QStringLiteral("mp3"));
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
    EXPECT_THAT(notes, ElementsAre(QStringLiteral("áudio: não consegui tocar a fala -1 (no aiff)")));
}

TEST_F(AudioIOTest, ASoundServerThatDiesAbandonsThePendingClipsEachReportedOnce) {
    io.start({});
    io.play({1}, "100000", QStringLiteral("mp3"));
    io.play({2}, "100000", QStringLiteral("mp3"));
    EXPECT_TRUE(speakers.playUntilSound());
    server.die();
    EXPECT_THAT(played, UnorderedElementsAre(1, 2));
    server.comeBack();
    speakers.given.clear();
    EXPECT_TRUE(server.isPlaybackOpen());
    EXPECT_TRUE(speakers.speakUntil([&] { return !speakers.isSounding(); }));
    io.play({3}, "1000", QStringLiteral("mp3"));
    EXPECT_TRUE(speakers.speakUntil([&] { return played.size() == 3; }));
    EXPECT_THAT(played.back(), 3);
}

TEST_F(AudioIOTest, AClipThatComesWhileTheSoundServerIsAwayPlaysWhenItIsBack) {
    io.start({});
    io.shutdown();
    server.die();
    io.play({1}, "1000", QStringLiteral("mp3"));
    scheduler.advance(2s);
    server.comeBack();
    EXPECT_TRUE(server.isPlaybackOpen());
    EXPECT_TRUE(speakers.speakUntil([&] { return !played.empty(); }));
    EXPECT_THAT(played, ElementsAre(1));
}

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

TEST_F(AudioIOTest, WhatTheMicrophoneIsFreedOfIsExactlyWhatTheSpeakersGot) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    io.play({1}, "1000", QStringLiteral("mp3"));
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

TEST_F(AudioIOTest, TellsHowTheEchoCancellerDoesWhileTheMicrophoneIsOpen) {
    EXPECT_EQ(converged(), std::nullopt);
    server.opensAtOnce = false;
    io.start({});
    EXPECT_EQ(converged(), std::nullopt);
    server.finishOpening({});
    EXPECT_EQ(converged(), false);
    server.deliver(std::vector<float>(480, 0.0F));
    EXPECT_EQ(converged(), true);
    EXPECT_EQ(io.echoCancellerState()->inWords(),
              QStringLiteral("fake; has found the echo; delay unknown; echo return loss enhancement unknown"));
    io.shutdown();
    EXPECT_EQ(converged(), std::nullopt);
}

TEST_F(AudioIOTest, OtherDevicesMeetACancellerAndAReferenceThatKnowNothing) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    playUnheard();
    server.change();
    EXPECT_EQ(converged(), false);
    expectSilentReference();
    EXPECT_EQ(calls.alive, 1);
}

TEST_F(AudioIOTest, AnotherInputMeetsACancellerAndAReferenceThatKnowNothing) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    playUnheard();
    io.use(QStringLiteral("Mic B"));
    EXPECT_EQ(converged(), false);
    expectSilentReference();
}

TEST_F(AudioIOTest, ASoundServerThatReturnsMeetsACancellerAndAReferenceThatKnowNothing) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    playUnheard();
    server.die();
    EXPECT_EQ(converged(), std::nullopt);
    server.comeBack();
    EXPECT_EQ(converged(), false);
    expectSilentReference();
}

TEST_F(AudioIOTest, AMicrophoneThatWasReleasedMeetsACancellerAndAReferenceThatKnowNothing) {
    io.start({});
    server.deliver(std::vector<float>(480, 0.0F));
    io.shutdown();
    playUnheard();
    io.resume();
    EXPECT_EQ(converged(), false);
    expectSilentReference();
}
