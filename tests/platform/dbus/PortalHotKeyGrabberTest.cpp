#include "platform/dbus/PortalHotKeyGrabber.h"

#include "platform/dbus/preferredTrigger.h"
#include "tests/platform/dbus/FakePortal.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

#include <vector>

using namespace palomet;
using test::FakePortal;

namespace {

constexpr quint32 option = 0x800;

class PortalHotKeyGrabberTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_FALSE(bus.address().isEmpty()); }

    /// Starts the grabber with both hot keys, the first of them registered.
    void begin() {
        grabber = std::make_unique<PortalHotKeyGrabber>(bus.connect(), QStringLiteral("org.palomet.Palomet"), layout);
        grabber->onPressed = [this](quint32 id) { pressed.push_back(id); };
        grabber->onRefused = [this](quint32 id) { refused.push_back(id); };
        grabber->onGranted = [this](quint32 id) { granted.push_back(id); };
        grabber->offer(offers);
        isTaken = grabber->grab(1, 49, option);
    }
    bool isBound() {
        return test::eventually([&] { return grabber->trigger(1) == QStringLiteral("Meta+1"); });
    }

    test::PrivateBus bus;
    test::FixedKeyboardLayout layout{{{40, QStringLiteral("k")}}};
    FakePortal portal{bus.connect()};
    std::vector<HotKeyOffer> offers{{1, QStringLiteral("Listen"), 49, option}, {2, QStringLiteral("Stop"), 53, 0}};
    std::unique_ptr<PortalHotKeyGrabber> grabber;
    std::vector<quint32> pressed;
    std::vector<quint32> refused;
    std::vector<quint32> granted;
    bool isTaken = false;
};

} // namespace

TEST_F(PortalHotKeyGrabberTest, BindsEveryOfferedKeyOnceInBothCalls) {
    portal.appear();
    begin();
    EXPECT_TRUE(isTaken);
    ASSERT_TRUE(isBound());
    EXPECT_EQ(portal.calls, QStringList({QStringLiteral("Register"), QStringLiteral("CreateSession"),
                                         QStringLiteral("BindShortcuts")}));
    ASSERT_EQ(portal.created.size(), 2);
    ASSERT_EQ(portal.bound.size(), 2);
    EXPECT_EQ(portal.created[0].properties, portal.bound[0].properties);
    EXPECT_EQ(portal.bound[0].properties[QStringLiteral("description")], QStringLiteral("Listen"));
    EXPECT_EQ(portal.bound[0].properties[QStringLiteral("preferred_trigger")], QStringLiteral("ALT+space"));
    EXPECT_TRUE(grabber->grab(2, 53, 0));
    grabber->release(2);
    EXPECT_EQ(portal.calls.count(QStringLiteral("BindShortcuts")), 1);
}

TEST_F(PortalHotKeyGrabberTest, NeverProposesAKeyWithoutAModifier) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    EXPECT_FALSE(portal.bound[1].properties.contains(QStringLiteral("preferred_trigger")));
    EXPECT_EQ(preferredTrigger({1, {}, 40, 0x1000 | option | 0x200 | 0x100}, layout),
              QStringLiteral("CTRL+ALT+SHIFT+LOGO+k"));
    EXPECT_EQ(preferredTrigger({1, {}, 10, option}, layout), QString());
}

TEST_F(PortalHotKeyGrabberTest, TellsOfAnActivationOfARegisteredKeyOnly) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    portal.activate(QStringLiteral("2"));
    portal.activate(QStringLiteral("1"), QStringLiteral("/org/freedesktop/portal/desktop/session/x/other"));
    portal.activate(QStringLiteral("nonsense"));
    portal.activate(QStringLiteral("1"));
    EXPECT_TRUE(test::eventually([&] { return !pressed.empty(); }));
    EXPECT_EQ(pressed, std::vector<quint32>({1}));
}

TEST_F(PortalHotKeyGrabberTest, ReportsARefusalOfTheSession) {
    portal.answer = FakePortal::Answer::RefuseSession;
    portal.appear();
    begin();
    EXPECT_TRUE(isTaken);
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    EXPECT_FALSE(grabber->grab(1, 49, option));
}

TEST_F(PortalHotKeyGrabberTest, ReportsARefusalOfTheBinding) {
    portal.answer = FakePortal::Answer::RefuseBinding;
    portal.appear();
    begin();
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
}

TEST_F(PortalHotKeyGrabberTest, ReportsAKeyThatIsLeftOutOfTheAnswer) {
    portal.answer = FakePortal::Answer::BindFirstOnly;
    portal.appear();
    begin();
    EXPECT_TRUE(grabber->grab(2, 53, 0));
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({2}); }));
    EXPECT_TRUE(isBound());
    EXPECT_FALSE(grabber->grab(2, 53, 0));
}

TEST_F(PortalHotKeyGrabberTest, ReportsAnErrorAsARefusal) {
    portal.answer = FakePortal::Answer::Error;
    portal.appear();
    begin();
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
}

TEST_F(PortalHotKeyGrabberTest, ReportsThatThereIsNoPortal) {
    begin();
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    EXPECT_FALSE(grabber->grab(1, 49, option));
}

TEST_F(PortalHotKeyGrabberTest, WaitsForALateAnswerWithoutBlocking) {
    portal.answer = FakePortal::Answer::Nothing;
    portal.appear();
    begin();
    ASSERT_TRUE(test::eventually([&] { return portal.pending.has_value(); }));
    EXPECT_TRUE(grabber->grab(2, 53, 0));
    EXPECT_TRUE(refused.empty());
    portal.answer = FakePortal::Answer::Bind;
    portal.respond(portal.pending->first, 0, portal.pending->second);
    EXPECT_TRUE(isBound());
    EXPECT_TRUE(refused.empty());
}

TEST_F(PortalHotKeyGrabberTest, BindsAnewWhenThePortalComesBack) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    portal.vanish();
    ASSERT_TRUE(test::eventually([&] { return grabber->trigger(1).isEmpty(); }));
    portal.appear();
    ASSERT_TRUE(isBound());
    portal.activate(QStringLiteral("1"));
    EXPECT_TRUE(test::eventually([&] { return pressed == std::vector<quint32>({1}); }));
    EXPECT_TRUE(refused.empty());
}

TEST_F(PortalHotKeyGrabberTest, ReportsThatTheUserTookTheKeysAway) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    portal.closeSession();
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
}

TEST_F(PortalHotKeyGrabberTest, BindsAnewOnlyWhenWhatIsOfferedChanged) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    grabber->offer(offers);
    offers[0].keyCode = 40;
    grabber->offer(offers);
    ASSERT_TRUE(isBound());
    EXPECT_EQ(portal.calls.count(QStringLiteral("CreateSession")), 2);
    EXPECT_EQ(portal.calls.count(QStringLiteral("Close")), 1);
    EXPECT_EQ(portal.bound[0].properties[QStringLiteral("preferred_trigger")], QStringLiteral("ALT+k"));
}

TEST_F(PortalHotKeyGrabberTest, ReportsAKeyThatTheUserTakesAwayAndOneThatIsGivenLater) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    granted.clear();
    portal.change({{QStringLiteral("2"), QStringLiteral("Meta+2")}});
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    EXPECT_FALSE(grabber->grab(1, 49, option));
    portal.activate(QStringLiteral("2"));
    portal.change({{QStringLiteral("1"), QStringLiteral("Meta+3")}, {QStringLiteral("2"), QStringLiteral("Meta+2")}});
    EXPECT_TRUE(test::eventually([&] { return granted == std::vector<quint32>({1}); }));
    EXPECT_TRUE(grabber->grab(1, 49, option));
    EXPECT_EQ(grabber->trigger(1), QStringLiteral("Meta+3"));
    portal.activate(QStringLiteral("1"));
    EXPECT_TRUE(test::eventually([&] { return pressed == std::vector<quint32>({1}); }));
    EXPECT_EQ(refused, std::vector<quint32>({1}));
}

TEST_F(PortalHotKeyGrabberTest, ReportsAKeyThatIsLeftWithoutKeysUntilItIsActivatedAfterAll) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    granted.clear();
    portal.change({{QStringLiteral("1"), QString()}, {QStringLiteral("2"), QStringLiteral("Meta+2")}});
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    grabber->onGranted = [this](quint32 id) { isTaken = grabber->grab(id, 49, option); };
    isTaken = false;
    portal.activate(QStringLiteral("1"));
    EXPECT_TRUE(test::eventually([&] { return pressed == std::vector<quint32>({1}); }));
    EXPECT_TRUE(isTaken);
}

TEST_F(PortalHotKeyGrabberTest, TakesTheKeysThatTheUserChoosesAfterARefusal) {
    portal.answer = FakePortal::Answer::RefuseBinding;
    portal.appear();
    begin();
    ASSERT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    portal.change({{QStringLiteral("1"), QStringLiteral("Meta+3")}});
    EXPECT_TRUE(test::eventually([&] { return granted == std::vector<quint32>({1}); }));
    EXPECT_TRUE(grabber->grab(1, 49, option));
}
