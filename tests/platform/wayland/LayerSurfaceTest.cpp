#include "platform/wayland/LayerSurface.h"

#include "platform/wayland/LayerShellProtocol.h"
#include "platform/wayland/WaylandRegistry.h"
#include "tests/platform/wayland/CompositorDouble.h"
#include "tests/support/Eventually.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace palomet;
using test::CompositorDouble;
using testing::ElementsAre;
using testing::EndsWith;
using Requests = std::vector<std::string>;

namespace {

struct SurfaceDeleter {
    void operator()(wl_surface *surface) const { wl_surface_destroy(surface); }
    void operator()(wl_compositor *compositor) const { wl_compositor_destroy(compositor); }
};

/// A client as the toolkit is one.
class Client {
public:
    Client()
        : display(wl_display_connect(nullptr)) {
        const WaylandRegistry registry(display.get());
        shell.reset(registry.bind(layershell::shellInterface, layershell::version));
        compositor.reset(reinterpret_cast<wl_compositor *>(registry.bind(wl_compositor_interface, 4)));
        surface.reset(wl_compositor_create_surface(compositor.get()));
    }

    /// Everything that was said until now is heard.
    void catchUp() const { wl_display_roundtrip(display.get()); }

    std::unique_ptr<LayerSurface> place() const {
        return std::make_unique<LayerSurface>(
            display.get(), shell.get(), surface.get(),
            LayerSurface::Place{.screen = nullptr, .width = 440, .height = 40, .distance = 48});
    }

    WaylandOwner<wl_display> display;
    WaylandOwner<wl_proxy> shell;
    std::unique_ptr<wl_compositor, SurfaceDeleter> compositor;
    std::unique_ptr<wl_surface, SurfaceDeleter> surface;
};

} // namespace

TEST(LayerSurface, IsInTheUppermostLayerAboveTheLowerEdgeWithoutTheFocus) {
    CompositorDouble compositor({});
    const Client client;
    const auto layer = client.place();
    client.catchUp();
    EXPECT_EQ(compositor.requests(),
              (Requests{"create_surface", "get_layer_surface 3", "set_anchor 2", "set_size 440 40",
                        "set_margin 0 0 48 0", "set_keyboard_interactivity 0", "commit", "ack_configure 7"}));
}

TEST(LayerSurface, FollowsItsWindow) {
    CompositorDouble compositor({});
    const Client client;
    const auto layer = client.place();
    layer->change({.screen = nullptr, .width = 300, .height = 60, .distance = 92});
    client.catchUp();
    const auto requests = compositor.requests();
    EXPECT_THAT((Requests{requests.end() - 2, requests.end()}), ElementsAre("set_size 300 60", "set_margin 0 0 92 0"));
}

TEST(LayerSurface, IsGoneBeforeTheSurfaceThatItIsMadeOf) {
    CompositorDouble compositor({});
    Client client;
    auto layer = client.place();
    layer.reset();
    client.surface.reset();
    client.catchUp();
    const auto requests = compositor.requests();
    EXPECT_THAT((Requests{requests.end() - 2, requests.end()}), ElementsAre("destroy", "destroy"));
    EXPECT_EQ(wl_display_get_error(client.display.get()), 0);
}

TEST(LayerSurface, TellsThatItsScreenIsGone) {
    CompositorDouble compositor({});
    const Client client;
    const auto layer = client.place();
    int losses = 0;
    QObject::connect(layer.get(), &LayerSurface::lost, [&] { ++losses; });
    compositor.closeLayer();
    client.catchUp();
    EXPECT_TRUE(test::eventually([&] { return losses == 1; }));
}

TEST(LayerSurface, LetsGoAtOnceWhereThereIsNoScreenAndTellsNothingOfIt) {
    CompositorDouble compositor({.hasOutput = false});
    const Client client;
    const auto layer = client.place();
    int losses = 0;
    QObject::connect(layer.get(), &LayerSurface::lost, [&] { ++losses; });
    client.catchUp();
    EXPECT_THAT(compositor.requests().back(), "destroy");
    layer->change({.screen = nullptr, .width = 300, .height = 60, .distance = 92});
    QCoreApplication::processEvents();
    EXPECT_EQ(losses, 0);
    EXPECT_EQ(wl_display_get_error(client.display.get()), 0);
}
