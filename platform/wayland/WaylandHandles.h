#pragma once

#include <wayland-client.h>

#include <memory>

namespace palomet {

struct WaylandDeleter {
    void operator()(wl_display *display) const { wl_display_disconnect(display); }
    void operator()(wl_event_queue *queue) const { wl_event_queue_destroy(queue); }
    void operator()(wl_registry *registry) const { wl_registry_destroy(registry); }
    void operator()(wl_seat *seat) const { wl_seat_destroy(seat); }
    void operator()(wl_keyboard *keyboard) const { wl_keyboard_destroy(keyboard); }
    void operator()(wl_callback *callback) const { wl_callback_destroy(callback); }
    /// Of an object that the compositor is not told of the end of.
    void operator()(wl_proxy *proxy) const { wl_proxy_destroy(proxy); }
};

/// The owner of an object of the Wayland library.
template <typename Object>
using WaylandOwner = std::unique_ptr<Object, WaylandDeleter>;

struct WaylandWrapperDeleter {
    void operator()(void *wrapper) const { wl_proxy_wrapper_destroy(wrapper); }
};

/// The object under another name: those that are made by it so have their events on that queue.
template <typename Object>
[[nodiscard]] std::unique_ptr<Object, WaylandWrapperDeleter> onQueue(Object *object, wl_event_queue *queue) {
    auto *const wrapper = wl_proxy_create_wrapper(object);
    wl_proxy_set_queue(static_cast<wl_proxy *>(wrapper), queue);
    return {static_cast<Object *>(wrapper), WaylandWrapperDeleter()};
}

} // namespace palomet
