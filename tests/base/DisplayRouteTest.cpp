#include "base/DisplayRoute.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using Way = DisplayRoute::Way;
using Reason = DisplayRoute::Reason;
using Compositor = Displays::Compositor;

namespace {

/// A session with everything, and what was asked of it.
class DisplayRouteTest : public testing::Test {
protected:
    DisplayRoute choose() const { return chooseDisplayRoute(displays); }

    bool hasX11 = true;
    Compositor compositor = Compositor::WithLayers;
    int questionsToX11 = 0;
    int questionsToCompositor = 0;
    Displays displays{
        .chosen = {},
        .isWaylandSession = true,
        .hasPlugin = true,
        .hasX11 = [this] { return ++questionsToX11 > 0 && hasX11; },
        .compositor =
            [this] {
                ++questionsToCompositor;
                return compositor;
            },
    };
};

void expectRoute(const DisplayRoute &route, Way way, Reason reason) {
    EXPECT_EQ(route.way, way);
    EXPECT_EQ(route.reason, reason);
}

} // namespace

TEST_F(DisplayRouteTest, IsX11OnASessionOfItsOwnAndAsksNoCompositor) {
    displays.isWaylandSession = false;
    expectRoute(choose(), Way::X11, Reason::Session);
    EXPECT_EQ(questionsToCompositor, 0);
}

TEST_F(DisplayRouteTest, IsWaylandWhereTheCompositorHasLayersAndDoesNotWakeXWayland) {
    expectRoute(choose(), Way::Wayland, Reason::Session);
    EXPECT_TRUE(choose().hasLayers);
    EXPECT_EQ(questionsToX11, 0);
}

TEST_F(DisplayRouteTest, IsXWaylandWhereTheStripCouldNotBePlaced) {
    compositor = Compositor::WithoutLayers;
    expectRoute(choose(), Way::XWayland, Reason::NoLayers);
    compositor = Compositor::None;
    expectRoute(choose(), Way::XWayland, Reason::NoLayers);
}

TEST_F(DisplayRouteTest, IsXWaylandWhereTheToolkitCannotSpeakToACompositor) {
    displays.hasPlugin = false;
    expectRoute(choose(), Way::XWayland, Reason::NoPlugin);
    EXPECT_EQ(questionsToCompositor, 0);
}

TEST_F(DisplayRouteTest, IsWaylandWithoutLayersRatherThanNone) {
    hasX11 = false;
    compositor = Compositor::WithoutLayers;
    expectRoute(choose(), Way::Wayland, Reason::NoLayers);
    EXPECT_FALSE(choose().hasLayers);
}

TEST_F(DisplayRouteTest, IsWaylandOnAnX11SessionWhoseServerIsAway) {
    displays.isWaylandSession = false;
    hasX11 = false;
    expectRoute(choose(), Way::Wayland, Reason::Session);
}

TEST_F(DisplayRouteTest, IsNoneWithoutAServerAndACompositor) {
    hasX11 = false;
    compositor = Compositor::None;
    expectRoute(choose(), Way::None, Reason::Session);
    displays.isWaylandSession = false;
    expectRoute(choose(), Way::None, Reason::Session);
    displays.hasPlugin = false;
    expectRoute(choose(), Way::None, Reason::NoPlugin);
}

TEST_F(DisplayRouteTest, IsTheUsersWhereTheUserHasChosen) {
    displays.chosen = u"xcb"_s;
    expectRoute(choose(), Way::XWayland, Reason::User);
    EXPECT_FALSE(choose().hasLayers);
    displays.isWaylandSession = false;
    expectRoute(choose(), Way::X11, Reason::User);
    EXPECT_EQ(questionsToCompositor, 0);
    displays.chosen = u"wayland"_s;
    expectRoute(choose(), Way::Wayland, Reason::User);
    EXPECT_TRUE(choose().hasLayers);
    compositor = Compositor::WithoutLayers;
    EXPECT_FALSE(choose().hasLayers);
    displays.chosen = u"offscreen"_s;
    expectRoute(choose(), Way::Other, Reason::User);
}

TEST_F(DisplayRouteTest, IsNoneWhereTheUserHasChosenAServerThatIsAway) {
    displays.chosen = u"xcb"_s;
    hasX11 = false;
    expectRoute(choose(), Way::None, Reason::User);
}
