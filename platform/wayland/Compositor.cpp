#include "platform/wayland/Compositor.h"

#include "platform/wayland/LayerShellProtocol.h"
#include "platform/wayland/WaylandRegistry.h"

#include <QFileInfo>
#include <QLibraryInfo>

namespace palomet {

using namespace Qt::StringLiterals;

std::optional<Compositor> askCompositor() {
    // An open connection that was handed down is the toolkit's, and can be used once.
    if (!qEnvironmentVariableIsEmpty("WAYLAND_SOCKET"))
        return Compositor{};
    const WaylandOwner<wl_display> display(wl_display_connect(nullptr));
    if (!display)
        return std::nullopt;
    const WaylandRegistry registry(display.get());
    if (!registry.isComplete())
        return std::nullopt;
    return Compositor{.hasLayerShell = registry.has(layershell::shellInterface)};
}

bool canToolkitSpeakWayland() {
    const auto plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath);
    return QFileInfo::exists(plugins + u"/platforms/libqwayland-generic.so"_s);
}

} // namespace palomet
