#include "tests/audio/AudioIOTest.h"

using namespace palomet;
using namespace std::chrono_literals;
using test::AudioIOTest;
using test::changed;
using test::defaultInput;
using test::openA;
using test::openB;
using test::switchedToB;
using testing::ElementsAre;
using testing::IsEmpty;

// Opening the microphone.

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
