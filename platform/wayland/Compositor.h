#pragma once

#include <optional>

namespace palomet {

/// What the Wayland compositor of this session can do.
struct Compositor {
    bool hasLayerShell = false; ///< It places surfaces above all windows.
};

/// None where no compositor answers. Needs no application object; waits a second at most.
[[nodiscard]] std::optional<Compositor> askCompositor();

/// Whether the toolkit's part for Wayland is installed. Needs no application object.
[[nodiscard]] bool canToolkitSpeakWayland();

} // namespace palomet
