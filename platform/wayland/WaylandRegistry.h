#pragma once

#include "platform/wayland/WaylandHandles.h"

#include <string>
#include <vector>

namespace palomet {

/// What a compositor offers, asked on a queue of its own, so that nothing else happens meanwhile. The display outlives
/// it.
class WaylandRegistry {
public:
    /// Waits for the answer, a second at most.
    explicit WaylandRegistry(wl_display *display);
    WaylandRegistry(const WaylandRegistry &) = delete;
    WaylandRegistry &operator=(const WaylandRegistry &) = delete;

    /// Whether the compositor has told everything that it offers.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }
    [[nodiscard]] bool has(const wl_interface &interface) const { return find(interface) != nullptr; }
    /// An object of that kind, whose events are on the display's own queue; null where there is none.
    [[nodiscard]] wl_proxy *bind(const wl_interface &interface, uint32_t version) const;

private:
    struct Global {
        std::string interface;
        uint32_t name;
    };

    [[nodiscard]] const Global *find(const wl_interface &interface) const;

    WaylandOwner<wl_event_queue> m_queue;
    WaylandOwner<wl_registry> m_registry;
    std::vector<Global> m_globals;
    bool m_isComplete = false;
};

} // namespace palomet
