#include "platform/wayland/LayerShellProtocol.h"

#include <array>

namespace palomet::layershell {

namespace {

/// Their places in the tables below are what they are sent by.
enum ShellRequest : uint32_t { GetLayerSurface };
enum SurfaceRequest : uint32_t {
    SetSizeRequest,
    SetAnchorRequest,
    SetExclusiveZoneRequest,
    SetMarginRequest,
    SetKeyboardInteractivityRequest,
    GetPopupRequest,
    AckConfigureRequest,
    DestroyRequest,
};

// Not constant because the library declares them so. It changes none.
/// The kinds of the arguments of a message; null where an argument is no object.
std::array<const wl_interface *, 5> surfaceKinds{&surfaceInterface, &wl_surface_interface, &wl_output_interface,
                                                 nullptr, nullptr};
std::array<const wl_interface *, 4> plainKinds{};
auto *const plain = plainKinds.data();

// The arguments: n a new object, o an object, ? one that may be missing, s a string, u and i numbers.
const std::array<wl_message, 1> shellRequests{{{"get_layer_surface", "no?ous", surfaceKinds.data()}}};
const std::array<wl_message, 8> surfaceRequests{{
    {"set_size", "uu", plain},
    {"set_anchor", "u", plain},
    {"set_exclusive_zone", "i", plain},
    {"set_margin", "iiii", plain},
    {"set_keyboard_interactivity", "u", plain},
    {"get_popup", "o", plain},
    {"ack_configure", "u", plain},
    {"destroy", "", plain},
}};
const std::array<wl_message, 2> surfaceEvents{{{"configure", "uuu", plain}, {"closed", "", plain}}};

template <typename... Arguments>
void request(wl_proxy *proxy, uint32_t opcode, Arguments... arguments) {
    wl_proxy_marshal_flags(proxy, opcode, nullptr, wl_proxy_get_version(proxy), 0, arguments...);
}

} // namespace

const wl_interface shellInterface{"zwlr_layer_shell_v1", version, shellRequests.size(),
                                  shellRequests.data(),  0,       nullptr};
const wl_interface surfaceInterface{"zwlr_layer_surface_v1", version,
                                    surfaceRequests.size(),  surfaceRequests.data(),
                                    surfaceEvents.size(),    surfaceEvents.data()};

wl_proxy *makeSurface(wl_proxy *shell, wl_surface *surface, wl_output *output, Layer layer, const char *title) {
    return wl_proxy_marshal_flags(shell, GetLayerSurface, &surfaceInterface, wl_proxy_get_version(shell), 0, nullptr,
                                  surface, output, layer, title);
}

void listen(wl_proxy *surface, const SurfaceListener &listener, void *data) {
    // The library takes a table of functions of any kind, and calls them as `surfaceEvents` says.
    auto *const table = const_cast<SurfaceListener *>(&listener);
    wl_proxy_add_listener(surface, reinterpret_cast<void (**)()>(table), data);
}

void setSize(wl_proxy *surface, uint32_t width, uint32_t height) {
    request(surface, SetSizeRequest, width, height);
}

void setAnchor(wl_proxy *surface, uint32_t edges) {
    request(surface, SetAnchorRequest, edges);
}

void setMargin(wl_proxy *surface, const Margin &margin) {
    request(surface, SetMarginRequest, margin.top, margin.right, margin.bottom, margin.left);
}

void setTakesKeys(wl_proxy *surface, bool takesKeys) {
    request(surface, SetKeyboardInteractivityRequest, takesKeys ? 1U : 0U);
}

void acknowledge(wl_proxy *surface, uint32_t serial) {
    request(surface, AckConfigureRequest, serial);
}

void destroy(wl_proxy *surface) {
    wl_proxy_marshal_flags(surface, DestroyRequest, nullptr, wl_proxy_get_version(surface), WL_MARSHAL_FLAG_DESTROY);
}

} // namespace palomet::layershell
