#include "tests/platform/dbus/RealPortal.h"

#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

#include <vector>

using namespace palomet;
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
        grabber = std::make_unique<PortalHotKeyGrabber>(bus.connect(), QStringLiteral("org.palomet.Palomet"), layout);
        grabber->onPressed = [this](quint32 id) { pressed.push_back(id); };
        grabber->onRefused = [this](quint32 id) { refused.push_back(id); };
        grabber->offer({{1, QStringLiteral("Listen"), 49, option}, {2, QStringLiteral("Stop"), 53, 0}});
        EXPECT_TRUE(grabber->grab(1, 49, option)) << "true while the answer is pending";
    }
    bool isBound() {
        return eventually([&] { return grabber->trigger(1) == QStringLiteral("Meta+1"); });
    }

    test::PrivateBus bus;
    RealPortal portal{bus.connect(), bus.address()};
    test::FixedKeyboardLayout layout{{{40, QStringLiteral("k")}}};
    std::unique_ptr<PortalHotKeyGrabber> grabber;
    std::vector<quint32> pressed;
    std::vector<quint32> refused;
};

} // namespace

TEST_F(RealPortalTest, BindsBothKeysInOneSession) {
    ASSERT_TRUE(portal.start());
    begin();
    ASSERT_TRUE(isBound());
    EXPECT_EQ(grabber->trigger(2), QStringLiteral("Meta+2"));
    EXPECT_EQ(portal.calls, QStringList({QStringLiteral("CreateSession"), QStringLiteral("BindShortcuts")}));
    ASSERT_EQ(portal.bound.size(), 2);
    EXPECT_EQ(portal.bound[0].properties[QStringLiteral("description")], QStringLiteral("Listen"));
    EXPECT_EQ(portal.bound[0].properties[QStringLiteral("preferred_trigger")], QStringLiteral("ALT+space"));
    EXPECT_FALSE(portal.bound[1].properties.contains(QStringLiteral("preferred_trigger")));
    EXPECT_TRUE(refused.empty());
}

TEST_F(RealPortalTest, HearsOfARegisteredKeyOnly) {
    ASSERT_TRUE(portal.start());
    begin();
    ASSERT_TRUE(isBound());
    portal.activate(QStringLiteral("2"));
    portal.activate(QStringLiteral("1"));
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
    portal.activate(QStringLiteral("1"));
    EXPECT_TRUE(eventually([&] { return pressed == std::vector<quint32>({1}); }));
    EXPECT_TRUE(refused.empty());
}
