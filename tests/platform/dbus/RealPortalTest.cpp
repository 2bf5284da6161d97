#include "tests/platform/dbus/RealPortal.h"

#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

#include <vector>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;
using test::RealPortal;

namespace {

constexpr quint32 option = 0x800;

/// The hot keys at the portal that desktops ship.
class RealPortalTest : public testing::Test {
protected:
    void SetUp() override {
        if (!RealPortal::isInstalled())
            GTEST_SKIP() << "xdg-desktop-portal is not installed";
    }

    void begin() {
        grabber = std::make_unique<PortalHotKeyGrabber>(bus.connect(), u"org.palomet.Palomet"_s, layout);
        grabber->onPressed = [this](quint32 id) { pressed.push_back(id); };
        grabber->onRefused = [this](quint32 id) { refused.push_back(id); };
        grabber->offer({{1, u"Listen"_s, 49, option}, {2, u"Stop"_s, 53, 0}}, HotKeyGrabber::Occasion::Known);
        EXPECT_TRUE(grabber->grab(1, 49, option)) << "true while the answer is pending";
    }
    bool isBound() {
        return eventually([&] { return grabber->trigger(1) == u"Meta+1"_s; });
    }

    test::PrivateBus bus;
    RealPortal portal{bus.connect(), bus.address()};
    test::FixedKeyboardLayout layout{{{40, u"k"_s}}};
    std::unique_ptr<PortalHotKeyGrabber> grabber;
    std::vector<quint32> pressed;
    std::vector<quint32> refused;
};

} // namespace

TEST_F(RealPortalTest, BindsBothKeysInOneSession) {
    ASSERT_TRUE(portal.start());
    begin();
    ASSERT_TRUE(isBound());
    EXPECT_EQ(grabber->trigger(2), u"Meta+2"_s);
    EXPECT_EQ(portal.calls, QStringList({u"CreateSession"_s, u"ListShortcuts"_s, u"BindShortcuts"_s}));
    ASSERT_EQ(portal.bound.size(), 2);
    EXPECT_EQ(portal.bound[0].properties[u"description"_s], u"Listen"_s);
    EXPECT_EQ(portal.bound[0].properties[u"preferred_trigger"_s], u"ALT+space"_s);
    EXPECT_FALSE(portal.bound[1].properties.contains(u"preferred_trigger"_s));
    EXPECT_TRUE(refused.empty());
}

TEST_F(RealPortalTest, TakesTheKeysThatTheDesktopKnowsAndAsksForThemAnewWhenTheUserChooses) {
    portal.known = {{u"1"_s, u"Meta+1"_s}, {u"2"_s, u"Meta+2"_s}};
    ASSERT_TRUE(portal.start());
    begin();
    ASSERT_TRUE(isBound());
    EXPECT_EQ(portal.calls, QStringList({u"CreateSession"_s, u"ListShortcuts"_s}));
    for (int times = 1; times <= 3; ++times) {
        grabber->offer({{1, u"Listen"_s, 40, option}, {2, u"Stop"_s, 53, 0}}, HotKeyGrabber::Occasion::Chosen);
        ASSERT_TRUE(isBound());
        EXPECT_EQ(portal.calls.count(u"BindShortcuts"_s), times);
    }
    EXPECT_EQ(portal.bound[0].properties[u"preferred_trigger"_s], u"ALT+k"_s);
    EXPECT_TRUE(refused.empty());
}

TEST_F(RealPortalTest, HearsOfARegisteredKeyOnly) {
    ASSERT_TRUE(portal.start());
    begin();
    ASSERT_TRUE(isBound());
    portal.activate(u"2"_s);
    portal.activate(u"1"_s);
    EXPECT_TRUE(eventually([&] { return !pressed.empty(); }));
    EXPECT_EQ(pressed, std::vector<quint32>({1}));
}

TEST_F(RealPortalTest, IsToldOfARefusedSession) {
    portal.answer = RealPortal::Answer::RefuseSession;
    ASSERT_TRUE(portal.start());
    begin();
    EXPECT_TRUE(eventually([&] { return refused == std::vector<quint32>({1}); }));
    EXPECT_FALSE(grabber->grab(1, 49, option));
}

TEST_F(RealPortalTest, IsToldOfARefusedBinding) {
    portal.answer = RealPortal::Answer::RefuseBinding;
    ASSERT_TRUE(portal.start());
    begin();
    EXPECT_TRUE(eventually([&] { return refused == std::vector<quint32>({1}); }));
}

TEST_F(RealPortalTest, IsToldOfAKeyThatTheUserLeftOut) {
    portal.answer = RealPortal::Answer::BindFirstOnly;
    ASSERT_TRUE(portal.start());
    begin();
    EXPECT_TRUE(grabber->grab(2, 53, 0));
    EXPECT_TRUE(eventually([&] { return refused == std::vector<quint32>({2}); }));
    EXPECT_TRUE(isBound());
}

TEST_F(RealPortalTest, IsRefusedByADesktopWithoutGlobalShortcuts) {
    ASSERT_TRUE(portal.start(RealPortal::Desktop::HoldsNone));
    begin();
    EXPECT_TRUE(eventually([&] { return refused == std::vector<quint32>({1}); }));
    EXPECT_TRUE(portal.calls.isEmpty());
}

TEST_F(RealPortalTest, IsRefusedWithoutAPortal) {
    begin();
    EXPECT_TRUE(eventually([&] { return refused == std::vector<quint32>({1}); }));
}

TEST_F(RealPortalTest, IsToldWhenTheUserTakesTheKeysAway) {
    ASSERT_TRUE(portal.start());
    begin();
    ASSERT_TRUE(isBound());
    portal.closeSession();
    EXPECT_TRUE(eventually([&] { return refused == std::vector<quint32>({1}); }));
}

TEST_F(RealPortalTest, BindsAnewWhenThePortalWasKilledAndIsBack) {
    ASSERT_TRUE(portal.start());
    begin();
    for (int restart = 0; restart < 2; ++restart) {
        ASSERT_TRUE(isBound());
        portal.kill();
        ASSERT_TRUE(eventually([&] { return grabber->trigger(1).isEmpty(); }));
        ASSERT_TRUE(portal.start());
    }
    ASSERT_TRUE(isBound());
    portal.activate(u"1"_s);
    EXPECT_TRUE(eventually([&] { return pressed == std::vector<quint32>({1}); }));
    EXPECT_TRUE(refused.empty());
}
