#include "platform/dbus/PortalContrast.h"

#include "tests/platform/dbus/FakeDesktop.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

const auto appearance = u"org.freedesktop.appearance"_s;
const auto contrast = u"contrast"_s;

class PortalContrastTest : public ::testing::Test {
protected:
    PortalContrastTest() { desktop.appear(); }

    void create() {
        port.emplace(bus.connect());
        port->onChange = [this] { ++changes; };
    }
    [[nodiscard]] bool becomes(bool isRaised) {
        return eventually([&] { return port->isRaised() == isRaised; });
    }

    test::PrivateBus bus;
    test::FakeDesktop desktop{bus.connect()};
    std::optional<PortalContrast> port;
    int changes = 0;
};

} // namespace

TEST_F(PortalContrastTest, IsNotRaisedUntilThePortalSaysSo) {
    desktop.settings[appearance][contrast] = 1U;
    create();
    EXPECT_FALSE(port->isRaised());
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalContrastTest, FollowsThePreference) {
    desktop.settings[appearance][contrast] = 0U;
    create();
    ASSERT_TRUE(eventually([this] { return !desktop.calls.empty(); }));
    desktop.changeSetting(appearance, contrast, 1U);
    EXPECT_TRUE(becomes(true));
    // Nothing that there could be beyond that is known.
    desktop.changeSetting(appearance, contrast, 2U);
    EXPECT_TRUE(becomes(false));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalContrastTest, IsNotRaisedWhenThePortalTalksNonsense) {
    desktop.settings[appearance][contrast] = u"high"_s;
    create();
    ASSERT_TRUE(eventually([this] { return !desktop.calls.empty(); }));
    desktop.changeSetting(appearance, contrast, true);
    desktop.changeSetting(appearance, contrast, 1U);
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(changes, 1) << "nothing before it counted";
}
