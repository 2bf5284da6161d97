#include "platform/dbus/DesktopMicrophonePermission.h"

#include "tests/platform/dbus/FakeDesktop.h"
#include "tests/support/Eventually.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::eventually;
using test::FakeDesktop;

namespace {

const auto us = u"org.palomet.Palomet"_s;
const auto privacy = u"org.gnome.desktop.privacy"_s;
const auto key = u"disable-microphone"_s;

class MicrophonePermissionTest : public ::testing::Test {
protected:
    MicrophonePermissionTest() { desktop.appear(); }

    void create() { permission.emplace(bus.connect(), us, scheduler); }

    /// As first determined.
    MicrophoneStatus determined() {
        create();
        EXPECT_EQ(permission->status(), MicrophoneStatus::NotDetermined);
        bool isAnswered = false;
        permission->request([&] { isAnswered = true; });
        EXPECT_FALSE(isAnswered);
        EXPECT_TRUE(eventually([&] { return isAnswered; }));
        return permission->status();
    }

    bool becomes(MicrophoneStatus status) {
        return eventually([&] { return permission->status() == status; });
    }

    test::PrivateBus bus;
    FakeDesktop desktop{bus.connect()};
    test::ManualScheduler scheduler;
    std::optional<DesktopMicrophonePermission> permission;
};

} // namespace

TEST_F(MicrophonePermissionTest, IsGivenWhereNobodyObjects) {
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
}

TEST_F(MicrophonePermissionTest, IsGivenOnADesktopWithoutPortals) {
    desktop.vanish();
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
}

TEST_F(MicrophonePermissionTest, IsGivenWithoutABus) {
    permission.emplace(QDBusConnection::connectToBus(u"unix:path=/nowhere"_s, u"nowhere"_s), us, scheduler);
    bool isAnswered = false;
    permission->request([&] { isAnswered = true; });
    EXPECT_TRUE(eventually([&] { return isAnswered; }));
    EXPECT_EQ(permission->status(), MicrophoneStatus::Authorized);
}

TEST_F(MicrophonePermissionTest, IsGivenWherePortalsRefuseToAnswerOrTalkNonsense) {
    desktop.manner = FakeDesktop::Manner::Refuse;
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
    desktop.manner = FakeDesktop::Manner::Nonsense;
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
}

TEST_F(MicrophonePermissionTest, IsDeterminedAfterASecondWhenNobodyAnswers) {
    desktop.manner = FakeDesktop::Manner::KeepSilent;
    create();
    int answers = 0;
    permission->request([&] { ++answers; });
    permission->request([&] { ++answers; });
    ASSERT_TRUE(eventually([&] { return desktop.calls.size() == 2; }));
    scheduler.advance(999ms);
    EXPECT_EQ(permission->status(), MicrophoneStatus::NotDetermined);
    scheduler.advance(1ms);
    EXPECT_EQ(permission->status(), MicrophoneStatus::Authorized);
    EXPECT_EQ(answers, 2);

    // A late answer counts all the same, and nobody is told twice.
    desktop.settings[privacy][key] = true;
    desktop.manner = FakeDesktop::Manner::Answer;
    desktop.answerNow();
    EXPECT_TRUE(becomes(MicrophoneStatus::Restricted));
    EXPECT_EQ(answers, 2);
}

TEST_F(MicrophonePermissionTest, AnswersFromTheEventLoopOnceItIsDetermined) {
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
    int answers = 0;
    permission->request([&] { ++answers; });
    EXPECT_EQ(answers, 0);
    EXPECT_TRUE(eventually([&] { return answers == 1; }));
}

TEST_F(MicrophonePermissionTest, IsDeniedByTheUsersAnswerForThisApplication) {
    desktop.permissions = {{us, {u"no"_s}}};
    EXPECT_EQ(determined(), MicrophoneStatus::Denied);
}

TEST_F(MicrophonePermissionTest, IsNotDeniedByAnAnswerForAnotherApplicationOrAnOpenOne) {
    desktop.permissions = {{u"org.example.Other"_s, {u"no"_s}}, {us, {u"ask"_s}}};
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
    desktop.permissions = {{us, {}}};
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
}

TEST_F(MicrophonePermissionTest, IsRestrictedByThePrivacySwitchWhateverTheAnswer) {
    desktop.permissions = {{us, {u"yes"_s}}};
    desktop.settings[privacy][key] = true;
    EXPECT_EQ(determined(), MicrophoneStatus::Restricted);
}

TEST_F(MicrophonePermissionTest, FollowsThePrivacySwitch) {
    desktop.settings[privacy][key] = false;
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
    desktop.changeSetting(privacy, key, true);
    EXPECT_TRUE(becomes(MicrophoneStatus::Restricted));
    desktop.changeSetting(privacy, key, u"no Boolean"_s);
    EXPECT_TRUE(becomes(MicrophoneStatus::Authorized));
}

TEST_F(MicrophonePermissionTest, FollowsTheUsersAnswer) {
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
    desktop.changePermissions({{us, {u"no"_s}}});
    EXPECT_TRUE(becomes(MicrophoneStatus::Denied));
    desktop.deletePermissions();
    EXPECT_TRUE(becomes(MicrophoneStatus::Authorized));
}

TEST_F(MicrophonePermissionTest, IsNotConcernedByOtherDevicesAndSettings) {
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
    desktop.changePermissions({{us, {u"no"_s}}}, u"camera"_s);
    desktop.changeSetting(privacy, u"disable-camera"_s, true);
    desktop.changePermissions({{u"last"_s, {u"no"_s}}});
    desktop.changeSetting(privacy, key, true);
    EXPECT_TRUE(becomes(MicrophoneStatus::Restricted));
    desktop.changeSetting(privacy, key, false);
    EXPECT_TRUE(becomes(MicrophoneStatus::Authorized));
}

TEST_F(MicrophonePermissionTest, IsDeniedWhenTheSoundServerRefusesUntilTheUsersAnswerIsAnother) {
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
    permission->soundServerRefused();
    EXPECT_EQ(permission->status(), MicrophoneStatus::Denied);
    desktop.changePermissions({{us, {u"yes"_s}}});
    EXPECT_TRUE(becomes(MicrophoneStatus::Authorized));
}

TEST_F(MicrophonePermissionTest, IsGivenAgainWhenTheSoundServerLetsItIn) {
    EXPECT_EQ(determined(), MicrophoneStatus::Authorized);
    permission->soundServerRefused();
    permission->soundServerGranted();
    EXPECT_EQ(permission->status(), MicrophoneStatus::Authorized);
    desktop.changePermissions({{us, {u"no"_s}}});
    EXPECT_TRUE(becomes(MicrophoneStatus::Denied));
    permission->soundServerGranted();
    EXPECT_EQ(permission->status(), MicrophoneStatus::Denied);
}
