#include "platform/wayland/WaylandRegistry.h"

#include "platform/wayland/awaitCompositor.h"

#include <algorithm>

namespace palomet {

WaylandRegistry::WaylandRegistry(wl_display *display)
    : m_queue(wl_display_create_queue(display)) {
    const auto wrapper = onQueue(display, m_queue.get());
    m_registry.reset(wl_display_get_registry(wrapper.get()));
    static constexpr wl_registry_listener globals{
        .global =
            [](void *self, wl_registry * /*registry*/, uint32_t name, const char *interface, uint32_t /*version*/) {
                static_cast<WaylandRegistry *>(self)->m_globals.push_back({interface, name});
            },
        .global_remove = [](void * /*self*/, wl_registry * /*registry*/, uint32_t /*name*/) {},
    };
    wl_registry_add_listener(m_registry.get(), &globals, this);
    // What is answered in its turn comes after all of them.
    const WaylandOwner<wl_callback> turn(wl_display_sync(wrapper.get()));
    static constexpr wl_callback_listener told{
        .done = [](void *self, wl_callback * /*callback*/,
                   uint32_t /*serial*/) { static_cast<WaylandRegistry *>(self)->m_isComplete = true; },
    };
    wl_callback_add_listener(turn.get(), &told, this);
    awaitCompositor(display, m_queue.get(), [this] { return m_isComplete; });
}

const WaylandRegistry::Global *WaylandRegistry::find(const wl_interface &interface) const {
    const auto found = std::find_if(m_globals.begin(), m_globals.end(),
                                    [&](const auto &global) { return global.interface == interface.name; });
    return found == m_globals.end() ? nullptr : &*found;
}

wl_proxy *WaylandRegistry::bind(const wl_interface &interface, uint32_t version) const {
    const auto *const global = find(interface);
    if (global == nullptr)
        return nullptr;
    auto *const proxy = static_cast<wl_proxy *>(wl_registry_bind(m_registry.get(), global->name, &interface, version));
    wl_proxy_set_queue(proxy, nullptr);
    return proxy;
}

} // namespace palomet
