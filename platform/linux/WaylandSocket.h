#pragma once

namespace palomet {

/// Whether somebody listens where the environment says that the Wayland compositor is.
[[nodiscard]] bool hasWaylandDisplay();

} // namespace palomet
