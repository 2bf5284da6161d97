#include "platform/dbus/PortalLook.h"

#include "tests/platform/dbus/FakeDesktop.h"
#include "tests/platform/dbus/RealPortal.h"
#include "tests/platform/dbus/SettingsBackend.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;
using Scheme = DesktopLook::Scheme;

namespace {

const auto appearance = u"org.freedesktop.appearance"_s;
const auto colorScheme = u"color-scheme"_s;
const auto contrast = u"contrast"_s;
const auto reduced = u"reduced-motion"_s;
const auto accessibility = u"org.gnome.desktop.a11y.interface"_s;
const auto highContrast = u"high-contrast"_s;
const auto gnome = u"org.gnome.desktop.interface"_s;
const auto animations = u"enable-animations"_s;

class PortalLookTest : public ::testing::Test {
protected:
    PortalLookTest() { desktop.appear(); }

    void create(const QString &name = u"KDE"_s) {
        look.emplace(bus.connect(), name);
        look->onChange = [this] { ++changes; };
    }
    [[nodiscard]] bool becomes(bool (DesktopLook::*is)() const, bool wanted) {
        return eventually([&] { return (*look.*is)() == wanted; });
    }
    /// Whether each of its settings was asked for.
    [[nodiscard]] bool isAsked() {
        return eventually([this] { return desktop.calls.size() >= 5; });
    }

    test::PrivateBus bus;
    test::FakeDesktop desktop{bus.connect()};
    std::optional<PortalLook> look;
    int changes = 0;
};

} // namespace

TEST_F(PortalLookTest, PanelsAreLightUntilThePortalSaysOtherwise) {
    desktop.settings[appearance][colorScheme] = 1U;
    create();
    EXPECT_EQ(look->panelScheme(), Scheme::Light);
    EXPECT_TRUE(eventually([this] { return changes == 1; }));
    EXPECT_EQ(look->panelScheme(), Scheme::Dark);
}

TEST_F(PortalLookTest, PanelsOfSomeCompositorsMayBeEitherUntilThePortalSaysWhich) {
    for (const auto &name : {u"sway"_s, u"wlroots:Hyprland"_s}) {
        create(name);
        EXPECT_EQ(look->panelScheme(), Scheme::Unknown);
    }
}

TEST_F(PortalLookTest, PanelsMayBeEitherOnTheDesktopWhosePreferenceIsNotTheirs) {
    desktop.settings[appearance][colorScheme] = 1U;
    create(u"XFCE"_s);
    ASSERT_TRUE(isAsked());
    desktop.changeSetting(appearance, colorScheme, 2U);
    desktop.changeSetting(appearance, contrast, 1U);
    EXPECT_TRUE(becomes(&DesktopLook::isContrastRaised, true));
    EXPECT_EQ(look->panelScheme(), Scheme::Unknown);
    EXPECT_EQ(changes, 1) << "of the contrast alone";
}

TEST_F(PortalLookTest, PanelsFollowThePreference) {
    create(u"sway"_s);
    ASSERT_TRUE(isAsked());
    desktop.changeSetting(appearance, colorScheme, 2U);
    desktop.changeSetting(appearance, colorScheme, 1U);
    EXPECT_TRUE(eventually([this] { return look->panelScheme() == Scheme::Dark; }));
    desktop.changeSetting(appearance, colorScheme, 0U);
    EXPECT_TRUE(eventually([this] { return look->panelScheme() == Scheme::Unknown; }));
    EXPECT_EQ(changes, 3) << "light, dark, and no preference";
}

TEST_F(PortalLookTest, PanelsAreAskedForAgainWhenThePortalReturns) {
    desktop.vanish();
    create();
    desktop.settings[appearance][colorScheme] = 1U;
    desktop.appear();
    EXPECT_TRUE(eventually([this] { return look->panelScheme() == Scheme::Dark; }));
}

TEST_F(PortalLookTest, PanelsAreDarkOnTheDesktopWhosePanelAlwaysIs) {
    desktop.settings[appearance][colorScheme] = 2U;
    create(u"ubuntu:GNOME"_s);
    EXPECT_EQ(look->panelScheme(), Scheme::Dark);
    desktop.changeSetting(appearance, colorScheme, 1U);
    ASSERT_TRUE(isAsked());
    EXPECT_EQ(changes, 0);
}

TEST_F(PortalLookTest, PanelsAreAsEverWhenThePortalTalksNonsense) {
    desktop.settings[appearance][colorScheme] = u"dark"_s;
    create();
    ASSERT_TRUE(isAsked());
    desktop.changeSetting(appearance, colorScheme, -1);
    desktop.changeSetting(appearance, colorScheme, 1U);
    EXPECT_TRUE(eventually([this] { return changes == 1; }));
    EXPECT_EQ(look->panelScheme(), Scheme::Dark);
}

TEST_F(PortalLookTest, ContrastIsNotRaisedUntilThePortalSaysSo) {
    desktop.settings[appearance][contrast] = 1U;
    create();
    EXPECT_FALSE(look->isContrastRaised());
    EXPECT_TRUE(becomes(&DesktopLook::isContrastRaised, true));
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalLookTest, ContrastFollowsThePreference) {
    desktop.settings[appearance][contrast] = 0U;
    create();
    ASSERT_TRUE(isAsked());
    desktop.changeSetting(appearance, contrast, 1U);
    EXPECT_TRUE(becomes(&DesktopLook::isContrastRaised, true));
    // Nothing that there could be beyond that is known.
    desktop.changeSetting(appearance, contrast, 2U);
    EXPECT_TRUE(becomes(&DesktopLook::isContrastRaised, false));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalLookTest, ContrastIsNotRaisedWhenThePortalTalksNonsense) {
    desktop.settings[appearance][contrast] = u"high"_s;
    create();
    ASSERT_TRUE(isAsked());
    desktop.changeSetting(appearance, contrast, true);
    desktop.changeSetting(appearance, contrast, 1U);
    EXPECT_TRUE(becomes(&DesktopLook::isContrastRaised, true));
    EXPECT_EQ(changes, 1) << "nothing before it counted";
}

TEST_F(PortalLookTest, ContrastFollowsTheOlderSettingWhereThereIsNoPreference) {
    desktop.settings[accessibility][highContrast] = true;
    create();
    EXPECT_TRUE(becomes(&DesktopLook::isContrastRaised, true));
    desktop.changeSetting(accessibility, highContrast, u"very"_s);
    EXPECT_TRUE(becomes(&DesktopLook::isContrastRaised, false));
    desktop.changeSetting(accessibility, highContrast, true);
    EXPECT_TRUE(becomes(&DesktopLook::isContrastRaised, true));
    desktop.changeSetting(appearance, contrast, 0U);
    EXPECT_TRUE(becomes(&DesktopLook::isContrastRaised, false));
}

TEST_F(PortalLookTest, MotionIsNotReducedUntilThePortalSaysSo) {
    desktop.settings[appearance][reduced] = 1U;
    create();
    EXPECT_FALSE(look->isMotionReduced());
    EXPECT_TRUE(becomes(&DesktopLook::isMotionReduced, true));
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalLookTest, MotionFollowsThePreference) {
    desktop.settings[appearance][reduced] = 0U;
    create();
    ASSERT_TRUE(isAsked());
    desktop.changeSetting(appearance, reduced, 1U);
    EXPECT_TRUE(becomes(&DesktopLook::isMotionReduced, true));
    desktop.changeSetting(appearance, reduced, 0U);
    EXPECT_TRUE(becomes(&DesktopLook::isMotionReduced, false));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalLookTest, MotionFollowsGnomesSwitchWhereThereIsNoPreference) {
    desktop.settings[gnome][animations] = false;
    create();
    EXPECT_TRUE(becomes(&DesktopLook::isMotionReduced, true));
    desktop.changeSetting(gnome, animations, true);
    EXPECT_TRUE(becomes(&DesktopLook::isMotionReduced, false));
}

TEST_F(PortalLookTest, MotionTakesThePreferenceBeforeGnomesSwitch) {
    desktop.settings[appearance][reduced] = 1U;
    desktop.settings[gnome][animations] = true;
    create();
    EXPECT_TRUE(becomes(&DesktopLook::isMotionReduced, true));
    desktop.changeSetting(gnome, animations, false);
    desktop.changeSetting(appearance, reduced, 0U);
    EXPECT_TRUE(becomes(&DesktopLook::isMotionReduced, false));
}

TEST_F(PortalLookTest, MotionIsAskedForAgainWhenThePortalReturns) {
    desktop.vanish();
    create();
    desktop.settings[appearance][reduced] = 1U;
    desktop.appear();
    EXPECT_TRUE(becomes(&DesktopLook::isMotionReduced, true));
}

TEST_F(PortalLookTest, MotionIsNotReducedWhenThePortalTalksNonsense) {
    desktop.settings[appearance][reduced] = u"yes"_s;
    desktop.settings[gnome][animations] = 0U;
    create();
    ASSERT_TRUE(isAsked());
    desktop.changeSetting(appearance, reduced, -1);
    desktop.changeSetting(gnome, animations, false);
    EXPECT_TRUE(becomes(&DesktopLook::isMotionReduced, true));
    EXPECT_EQ(changes, 1) << "nothing before it counted";
}

TEST(PortalLookAtTheRealPortal, BelievesTheDesktopsOwnBackendWhereOthersAreInstalledToo) {
    if (!test::RealPortal::isInstalled())
        GTEST_SKIP() << "xdg-desktop-portal is not installed";
    test::PrivateBus bus;
    test::SettingsBackend own(bus.connect(), u"a"_s);
    test::SettingsBackend other(bus.connect(), u"b"_s);
    test::SettingsBackend third(bus.connect(), u"c"_s);
    own.settings[appearance] = {{colorScheme, 1U}, {contrast, 1U}};
    other.settings[appearance] = {{colorScheme, 0U}, {contrast, 0U}};
    third.settings[appearance] = {{colorScheme, 0U}, {contrast, 0U}};
    third.settings[gnome] = {{animations, false}};
    test::RealPortal portal(bus.connect(), bus.address());
    for (const auto *backend : {&own, &other, &third})
        portal.addSettings(backend->name());
    ASSERT_TRUE(portal.start());
    const PortalLook look(bus.connect(), u"KDE"_s);
    EXPECT_TRUE(eventually([&] { return look.isMotionReduced(); })) << "known to the last of them alone";
    EXPECT_TRUE(eventually([&] { return look.panelScheme() == Scheme::Dark; }));
    EXPECT_TRUE(eventually([&] { return look.isContrastRaised(); }));
}
