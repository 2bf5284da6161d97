#include "tests/audio/AudioIOTest.h"

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
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
    EXPECT_THAT(configured, ElementsAre(u"Mic A"_s));
    EXPECT_EQ(io.deviceName(), u"Mic A"_s);
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
    io.start(u"Mic B"_s);
    EXPECT_THAT(server.defaultsSet, ElementsAre(u"mic.b"_s));
    EXPECT_THAT(notes, ElementsAre(switchedToB, openB));
}

TEST_F(AudioIOTest, NamesTheDeviceThatIsBeingOpened) {
    server.opensAtOnce = false;
    io.start({});
    EXPECT_EQ(io.deviceName(), u"Mic A"_s);
    server.finishOpening({});
    io.use(u"Mic B"_s);
    EXPECT_EQ(io.deviceName(), u"Mic B"_s);
}

TEST_F(AudioIOTest, NamesTheDeviceAsSoonAsTheServerHasToldItsDevices) {
    server.opensAtOnce = false;
    server.hasToldDevices = false;
    io.start({});
    EXPECT_THAT(names, ElementsAre(defaultInput));
    server.tellDevices();
    EXPECT_EQ(io.deviceName(), u"Mic A"_s);
    EXPECT_THAT(names, ElementsAre(defaultInput, u"Mic A"_s));
    EXPECT_EQ(server.captureOpenings, 1);
}

TEST_F(AudioIOTest, SwitchesToTheWantedDeviceAsSoonAsTheServerHasToldItsDevices) {
    server.opensAtOnce = false;
    server.hasToldDevices = false;
    io.start(u"Mic B"_s);
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    server.tellDevices();
    EXPECT_EQ(io.deviceName(), u"Mic B"_s);
    server.finishOpening({});
    EXPECT_THAT(server.defaultsSet, ElementsAre(u"mic.b"_s));
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
    io.start(u"Mic B"_s);
    server.defaultId = u"mic.a"_s;
    server.finishOpening({});
    EXPECT_EQ(io.deviceName(), u"Mic B"_s);
}

TEST_F(AudioIOTest, NeverSwitchesTheDefaultInputWhenItMayNotSelect) {
    io.selectsDevice = false;
    io.start(u"Mic B"_s);
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    EXPECT_THAT(notes, ElementsAre(openA));
    io.use(u"Mic B"_s);
    EXPECT_THAT(server.defaultsSet, IsEmpty());
}

TEST_F(AudioIOTest, AWantedDeviceThatIsTheDefaultAlreadyIsNeitherSwitchedToNorNoted) {
    io.start(u"Mic A"_s);
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    EXPECT_THAT(notes, ElementsAre(openA));
    io.restoreDefaultInput();
    EXPECT_THAT(server.defaultsSet, IsEmpty());
}

TEST_F(AudioIOTest, AWantedDeviceThatIsNotPresentLeavesTheDefaultWithoutANote) {
    io.start(u"Mic C"_s);
    EXPECT_THAT(server.defaultsSet, IsEmpty());
    EXPECT_THAT(notes, ElementsAre(openA));
}

TEST_F(AudioIOTest, PicksADeviceByItsExactNameOnly) {
    EXPECT_EQ(io.pickInput(u"Mic B"_s), u"Mic B"_s);
    EXPECT_EQ(io.pickInput(u"mic b"_s), std::nullopt);
    EXPECT_EQ(io.pickInput(u"Mic"_s), std::nullopt);
    EXPECT_EQ(io.pickInput(std::nullopt), std::nullopt);
}

TEST_F(AudioIOTest, TakesTheFirstOfTwoDevicesWithOneName) {
    server.devices = {{u"mic.a"_s, u"Mic A"_s}, {u"first"_s, u"USB"_s}, {u"second"_s, u"USB"_s}};
    io.start(u"USB"_s);
    EXPECT_THAT(server.defaultsSet, ElementsAre(u"first"_s));
}

TEST_F(AudioIOTest, RemembersOnlyTheDefaultFromBeforeItsFirstChange) {
    server.devices.push_back({u"mic.c"_s, u"Mic C"_s});
    io.start(u"Mic B"_s);
    io.use(u"Mic C"_s);
    io.restoreDefaultInput();
    EXPECT_EQ(server.defaultId, u"mic.a"_s);
    io.restoreDefaultInput();
    EXPECT_THAT(server.defaultsSet, ElementsAre(u"mic.b"_s, u"mic.c"_s, u"mic.a"_s));
}

TEST_F(AudioIOTest, LeavesTheDefaultAloneWhenTheOriginalOneHasGone) {
    io.start(u"Mic B"_s);
    server.devices.erase(server.devices.begin());
    io.restoreDefaultInput();
    EXPECT_EQ(server.defaultId, u"mic.b"_s);
    server.devices.push_back({u"mic.a"_s, u"Mic A"_s});
    io.restoreDefaultInput();
    EXPECT_EQ(server.defaultId, u"mic.b"_s);
}

TEST_F(AudioIOTest, SwitchesFromNoDefaultAndHasNothingToPutBack) {
    server.defaultId.reset();
    io.start(u"Mic B"_s);
    EXPECT_THAT(server.defaultsSet, ElementsAre(u"mic.b"_s));
    io.restoreDefaultInput();
    EXPECT_EQ(server.defaultId, u"mic.b"_s);
}

TEST_F(AudioIOTest, NamesADefaultThatCannotBeReadByTheLocalizedWords) {
    server.defaultId.reset();
    io.start({});
    EXPECT_EQ(io.deviceName(), defaultInput);
    server.defaultId = u"nobody knows"_s;
    server.change();
    EXPECT_EQ(io.deviceName(), defaultInput);
}

// Trying again.

TEST_F(AudioIOTest, NotesAMicrophoneThatDoesNotOpenOnAttempts1And15And30And45Only) {
    server.captureFailure = Failure{u"no microphone"_s};
    io.start({}, counted());
    const QString note =
        u"áudio: não consegui abrir o microfone com cancelamento de eco (no microphone); tentando de novo"_s;
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
    server.captureFailure = Failure{u"busy"_s};
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
    server.captureFailure = Failure{u"busy"_s};
    io.resume();
    EXPECT_EQ(notes.size(), 2);
    EXPECT_TRUE(notes.back().startsWith(u"áudio: não consegui abrir"_s));
}

TEST_F(AudioIOTest, AnEchoCancellerThatCannotBeMadeIsAFailedAttempt) {
    cancellerFailure = Failure{u"no canceller"_s};
    io.start({}, counted());
    EXPECT_FALSE(server.isCaptureOpen());
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(notes, ElementsAre(u"áudio: não consegui abrir o microfone com cancelamento de eco (no "
                                   "canceller); tentando de novo"_s));
    cancellerFailure.reset();
    scheduler.advance(2s);
    EXPECT_TRUE(server.isCaptureOpen());
}

TEST_F(AudioIOTest, UseDropsAnErrorWithoutANoteAndWithoutTryingAgain) {
    io.start({});
    notes.clear();
    server.captureFailure = Failure{u"busy"_s};
    io.use(u"Mic A"_s, counted());
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(notes, IsEmpty());
    scheduler.advance(1min);
    EXPECT_EQ(server.captureOpenings, 2);
}

TEST_F(AudioIOTest, AUseThatWorksEndsTheTryingAgain) {
    server.captureFailure = Failure{u"busy"_s};
    io.start({});
    server.captureFailure.reset();
    io.use(u"Mic B"_s);
    EXPECT_TRUE(server.isCaptureOpen());
    scheduler.advance(1min);
    EXPECT_EQ(server.captureOpenings, 2);
}

TEST_F(AudioIOTest, AUseThatFailsLeavesTheTryingAgainAsItIs) {
    server.captureFailure = Failure{u"busy"_s};
    io.start({});
    scheduler.advance(1s);
    io.use(u"Mic A"_s);
    EXPECT_EQ(server.captureOpenings, 2);
    scheduler.advance(1s);
    EXPECT_EQ(server.captureOpenings, 3);
    scheduler.advance(2s);
    EXPECT_EQ(server.captureOpenings, 4);
}

TEST_F(AudioIOTest, WhatIsAskedForDuringAnAttemptIsAnsweredByOneMoreBehindIt) {
    server.opensAtOnce = false;
    io.start({}, counted());
    io.use(u"Mic A"_s, counted());
    io.use(u"Mic B"_s, counted());
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
    io.use(u"Mic B"_s);
    server.finishOpening(Failure{u"busy"_s});
    server.finishOpening(Failure{u"busy"_s});
    EXPECT_EQ(server.captureOpenings, 2);
    scheduler.advance(2s);
    EXPECT_EQ(server.captureOpenings, 3);
}
