#include "platform/dbus/PortalMotion.h"

#include "tests/platform/dbus/FakeDesktop.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

const auto appearance = u"org.freedesktop.appearance"_s;
const auto reduced = u"reduced-motion"_s;
const auto gnome = u"org.gnome.desktop.interface"_s;
const auto animations = u"enable-animations"_s;

class PortalMotionTest : public ::testing::Test {
protected:
    PortalMotionTest() { desktop.appear(); }

    void create() {
        motion.emplace(bus.connect());
        motion->onChange = [this] { ++changes; };
    }
    [[nodiscard]] bool becomes(bool isReduced) {
        return eventually([&] { return motion->isReduced() == isReduced; });
    }

    test::PrivateBus bus;
    test::FakeDesktop desktop{bus.connect()};
    std::optional<PortalMotion> motion;
    int changes = 0;
};

} // namespace

TEST_F(PortalMotionTest, IsNotReducedUntilThePortalSaysSo) {
    desktop.settings[appearance][reduced] = 1U;
    create();
    EXPECT_FALSE(motion->isReduced());
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalMotionTest, FollowsThePreference) {
    desktop.settings[appearance][reduced] = 0U;
    create();
    ASSERT_TRUE(eventually([this] { return desktop.calls.size() >= 2; }));
    desktop.changeSetting(appearance, reduced, 1U);
    EXPECT_TRUE(becomes(true));
    desktop.changeSetting(appearance, reduced, 0U);
    EXPECT_TRUE(becomes(false));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalMotionTest, FollowsGnomesSwitchWhereThereIsNoPreference) {
    desktop.settings[gnome][animations] = false;
    create();
    EXPECT_TRUE(becomes(true));
    desktop.changeSetting(gnome, animations, true);
    EXPECT_TRUE(becomes(false));
}

TEST_F(PortalMotionTest, TakesThePreferenceBeforeGnomesSwitch) {
    desktop.settings[appearance][reduced] = 1U;
    desktop.settings[gnome][animations] = true;
    create();
    EXPECT_TRUE(becomes(true));
    desktop.changeSetting(gnome, animations, false);
    desktop.changeSetting(appearance, reduced, 0U);
    EXPECT_TRUE(becomes(false));
}

TEST_F(PortalMotionTest, IsAskedForAgainWhenThePortalReturns) {
    desktop.vanish();
    create();
    desktop.settings[appearance][reduced] = 1U;
    desktop.appear();
    EXPECT_TRUE(becomes(true));
}

TEST_F(PortalMotionTest, IsNotReducedWhenThePortalTalksNonsense) {
    desktop.settings[appearance][reduced] = u"yes"_s;
    desktop.settings[gnome][animations] = 0U;
    create();
    ASSERT_TRUE(eventually([this] { return desktop.calls.size() >= 2; }));
    desktop.changeSetting(appearance, reduced, -1);
    desktop.changeSetting(gnome, animations, false);
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(changes, 1) << "nothing before it counted";
}
