#pragma once

#include <wayland-client.h>

#include <cstdint>

/// wlr-layer-shell in its first version, as much of it as the strip needs: a surface without a window's frame or focus,
/// in a layer of the screen above all windows. The tables say how its messages are written.
namespace palomet::layershell {

/// The compositor's, "zwlr_layer_shell_v1".
extern const wl_interface shellInterface;
/// What it makes of a surface, "zwlr_layer_surface_v1".
extern const wl_interface surfaceInterface;

constexpr uint32_t version = 1;

enum class Layer : uint32_t { Background, Bottom, Top, Overlay };
/// Of a screen.
enum Edge : uint32_t { TopEdge = 1, BottomEdge = 2, LeftEdge = 4, RightEdge = 8 };

/// What the compositor tells of such a surface.
struct SurfaceListener {
    /// It may show from now on, in that size, once this is acknowledged.
    void (*configure)(void *data, wl_proxy *surface, uint32_t serial, uint32_t width, uint32_t height);
    /// It shows no more, and never will again: its screen is gone.
    void (*closed)(void *data, wl_proxy *surface);
};

/// Makes a layer's surface of one that has no role and no content yet. Without `output` the compositor chooses the
/// screen. `title` says what it is for.
[[nodiscard]] wl_proxy *makeSurface(wl_proxy *shell, wl_surface *surface, wl_output *output, Layer layer,
                                    const char *title);
/// `listener` and `data` outlive the surface.
void listen(wl_proxy *surface, const SurfaceListener &listener, void *data);
/// All of these hold from the surface's next commit on.
void setSize(wl_proxy *surface, uint32_t width, uint32_t height);
void setAnchor(wl_proxy *surface, uint32_t edges);
struct Margin {
    int top = 0;
    int right = 0;
    int bottom = 0;
    int left = 0;
};
void setMargin(wl_proxy *surface, const Margin &margin);
void setTakesKeys(wl_proxy *surface, bool takesKeys);

void acknowledge(wl_proxy *surface, uint32_t serial);
/// The surface shows no more, and can be destroyed after it.
void destroy(wl_proxy *surface);

} // namespace palomet::layershell
