#include "platform/dbus/preferredTrigger.h"
#include "tests/platform/dbus/PortalHotKeys.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using test::FakePortal;

using PortalHotKeyGrabberTest = test::PortalHotKeys;

TEST_F(PortalHotKeyGrabberTest, BindsEveryOfferedKeyOnceInBothCalls) {
    portal.appear();
    begin();
    EXPECT_TRUE(isTaken);
    ASSERT_TRUE(isBound());
    EXPECT_EQ(portal.calls, QStringList({u"Register"_s, u"CreateSession"_s, u"ListShortcuts"_s, u"BindShortcuts"_s}));
    ASSERT_EQ(portal.created.size(), 2);
    ASSERT_EQ(portal.bound.size(), 2);
    EXPECT_EQ(portal.created[0].properties, portal.bound[0].properties);
    EXPECT_EQ(portal.bound[0].properties[u"description"_s], u"Listen"_s);
    EXPECT_EQ(portal.bound[0].properties[u"preferred_trigger"_s], u"ALT+space"_s);
    EXPECT_TRUE(grabber->grab(2, 53, 0));
    grabber->release(2);
    EXPECT_EQ(portal.calls.count(u"BindShortcuts"_s), 1);
}

TEST_F(PortalHotKeyGrabberTest, NeverProposesAKeyWithoutAModifier) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    EXPECT_FALSE(portal.bound[1].properties.contains(u"preferred_trigger"_s));
    EXPECT_EQ(preferredTrigger({1, {}, 40, 0x1000 | option | 0x200 | 0x100}, layout), u"CTRL+ALT+SHIFT+LOGO+k"_s);
    EXPECT_EQ(preferredTrigger({1, {}, 10, option}, layout), QString());
}

TEST_F(PortalHotKeyGrabberTest, ProposesAKeyThatTypesNoCharacterByTheNameThatXHasForIt) {
    const auto proposed = [this](quint32 keyCode) { return preferredTrigger({1, {}, keyCode, option}, layout); };
    EXPECT_EQ(proposed(36), u"ALT+Return"_s);
    EXPECT_EQ(proposed(76), u"ALT+KP_Enter"_s);
    EXPECT_EQ(proposed(116), u"ALT+Prior"_s);
    EXPECT_EQ(proposed(121), u"ALT+Next"_s);
    EXPECT_EQ(proposed(110), u"ALT+Menu"_s);
    EXPECT_EQ(proposed(90), u"ALT+F20"_s);
}

TEST_F(PortalHotKeyGrabberTest, TellsOfAnActivationOfARegisteredKeyOnly) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    portal.activate(u"2"_s);
    portal.activate(u"1"_s, u"/org/freedesktop/portal/desktop/session/x/other"_s);
    portal.activate(u"nonsense"_s);
    portal.activate(u"1"_s);
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
    portal.activate(u"1"_s);
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

TEST_F(PortalHotKeyGrabberTest, ReportsAKeyThatTheUserTakesAwayAndOneThatIsGivenLater) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    granted.clear();
    portal.change({{u"2"_s, u"Meta+2"_s}});
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    EXPECT_FALSE(grabber->grab(1, 49, option));
    portal.activate(u"2"_s);
    portal.change({{u"1"_s, u"Meta+3"_s}, {u"2"_s, u"Meta+2"_s}});
    EXPECT_TRUE(test::eventually([&] { return granted == std::vector<quint32>({1}); }));
    EXPECT_TRUE(grabber->grab(1, 49, option));
    EXPECT_EQ(grabber->trigger(1), u"Meta+3"_s);
    portal.activate(u"1"_s);
    EXPECT_TRUE(test::eventually([&] { return pressed == std::vector<quint32>({1}); }));
    EXPECT_EQ(refused, std::vector<quint32>({1}));
}

TEST_F(PortalHotKeyGrabberTest, ReportsAKeyThatIsLeftWithoutKeysUntilItIsActivatedAfterAll) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    granted.clear();
    portal.change({{u"1"_s, QString()}, {u"2"_s, u"Meta+2"_s}});
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    grabber->onGranted = [this](quint32 id) { isTaken = grabber->grab(id, 49, option); };
    isTaken = false;
    portal.activate(u"1"_s);
    EXPECT_TRUE(test::eventually([&] { return pressed == std::vector<quint32>({1}); }));
    EXPECT_TRUE(isTaken);
}

TEST_F(PortalHotKeyGrabberTest, TakesTheKeysThatTheUserChoosesAfterARefusal) {
    portal.answer = FakePortal::Answer::RefuseBinding;
    portal.appear();
    begin();
    ASSERT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    portal.change({{u"1"_s, u"Meta+3"_s}});
    EXPECT_TRUE(test::eventually([&] { return granted == std::vector<quint32>({1}); }));
    EXPECT_TRUE(grabber->grab(1, 49, option));
}

TEST_F(PortalHotKeyGrabberTest, TellsWhenTheUserHasChosenOtherKeysForAKeyThatIsHeld) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    QString told;
    grabber->onTriggersChanged = [&] { told = grabber->trigger(1); };
    portal.change({{u"1"_s, u"Ctrl+F1"_s}, {u"2"_s, u"Meta+2"_s}});
    EXPECT_TRUE(test::eventually([&] { return told == u"Ctrl+F1"_s; }));
    told = u"nothing"_s;
    portal.vanish();
    EXPECT_TRUE(test::eventually([&] { return told.isEmpty(); }));
}
