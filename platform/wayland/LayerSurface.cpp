#include "platform/wayland/LayerSurface.h"

#include "platform/wayland/LayerShellProtocol.h"
#include "platform/wayland/WaylandHandles.h"
#include "platform/wayland/awaitCompositor.h"

#include <utility>

namespace palomet {

LayerSurface::LayerSurface(wl_display *display, wl_proxy *shell, wl_surface *surface, const Place &place) {
    // Only its own events are handled while it waits.
    const WaylandOwner<wl_event_queue> queue(wl_display_create_queue(display));
    const auto maker = onQueue(shell, queue.get());
    m_surface = layershell::makeSurface(maker.get(), surface, place.screen, layershell::Layer::Overlay, "palomet");
    static constexpr layershell::SurfaceListener listener{.configure = &configured, .closed = &closed};
    layershell::listen(m_surface, listener, this);
    layershell::setAnchor(m_surface, layershell::BottomEdge);
    change(place);
    layershell::setTakesKeys(m_surface, false);
    // Without content: it asks for a place.
    wl_surface_commit(surface);
    awaitCompositor(display, queue.get(), [this] { return m_isPlaced || m_isClosed; });
    // What comes later is handled by the toolkit's loop.
    wl_proxy_set_queue(m_surface, nullptr);
    wl_display_dispatch_queue_pending(display, queue.get());
    // Content without a place ends the program's connection.
    if (!m_isPlaced)
        layershell::destroy(std::exchange(m_surface, nullptr));
}

LayerSurface::~LayerSurface() {
    if (m_surface != nullptr)
        layershell::destroy(m_surface);
}

void LayerSurface::change(const Place &place) {
    if (m_surface == nullptr)
        return;
    layershell::setSize(m_surface, static_cast<uint32_t>(place.width), static_cast<uint32_t>(place.height));
    layershell::setMargin(m_surface, {.bottom = place.distance});
}

void LayerSurface::configured(void *data, wl_proxy *surface, uint32_t serial, uint32_t /*width*/, uint32_t /*height*/) {
    layershell::acknowledge(surface, serial);
    static_cast<LayerSurface *>(data)->m_isPlaced = true;
}

void LayerSurface::closed(void *data, wl_proxy * /*surface*/) {
    auto *const self = static_cast<LayerSurface *>(data);
    self->m_isClosed = true;
    if (self->m_isPlaced)
        QMetaObject::invokeMethod(self, &LayerSurface::lost, Qt::QueuedConnection);
}

} // namespace palomet
