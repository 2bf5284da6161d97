#include "platform/dbus/PortalColors.h"

#include "tests/platform/dbus/FakeDesktop.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;
using Scheme = DesktopColors::Scheme;

namespace {

const auto appearance = u"org.freedesktop.appearance"_s;
const auto key = u"color-scheme"_s;

class PortalColorsTest : public ::testing::Test {
protected:
    PortalColorsTest() { desktop.appear(); }

    void create(const QString &name = u"XFCE"_s) {
        colors.emplace(bus.connect(), name);
        colors->onChange = [this] { ++changes; };
    }

    test::PrivateBus bus;
    test::FakeDesktop desktop{bus.connect()};
    std::optional<PortalColors> colors;
    int changes = 0;
};

} // namespace

TEST_F(PortalColorsTest, AreLightUntilThePortalSaysOtherwise) {
    desktop.settings[appearance][key] = 1U;
    create();
    EXPECT_EQ(colors->panelScheme(), Scheme::Light);
    EXPECT_TRUE(eventually([this] { return changes == 1; }));
    EXPECT_EQ(colors->panelScheme(), Scheme::Dark);
}

TEST_F(PortalColorsTest, FollowThePreference) {
    create();
    ASSERT_TRUE(eventually([this] { return !desktop.calls.isEmpty(); }));
    desktop.changeSetting(appearance, key, 2U);
    desktop.changeSetting(appearance, key, 1U);
    EXPECT_TRUE(eventually([this] { return colors->panelScheme() == Scheme::Dark; }));
    desktop.changeSetting(appearance, key, 0U);
    EXPECT_TRUE(eventually([this] { return colors->panelScheme() == Scheme::Light; }));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalColorsTest, AreAskedForAgainWhenThePortalReturns) {
    desktop.vanish();
    create();
    desktop.settings[appearance][key] = 1U;
    desktop.appear();
    EXPECT_TRUE(eventually([this] { return colors->panelScheme() == Scheme::Dark; }));
}

TEST_F(PortalColorsTest, AreDarkOnTheDesktopWhosePanelAlwaysIs) {
    desktop.settings[appearance][key] = 2U;
    create(u"ubuntu:GNOME"_s);
    EXPECT_EQ(colors->panelScheme(), Scheme::Dark);
    desktop.changeSetting(appearance, key, 1U);
    ASSERT_TRUE(eventually([this] { return !desktop.calls.isEmpty(); }));
    EXPECT_EQ(changes, 0);
}

TEST_F(PortalColorsTest, AreLightWhenThePortalTalksNonsense) {
    desktop.settings[appearance][key] = u"dark"_s;
    create();
    ASSERT_TRUE(eventually([this] { return !desktop.calls.isEmpty(); }));
    desktop.changeSetting(appearance, key, -1);
    desktop.changeSetting(appearance, key, 1U);
    EXPECT_TRUE(eventually([this] { return changes == 1; }));
    EXPECT_EQ(colors->panelScheme(), Scheme::Dark);
}
