#pragma once

struct wl_display;

namespace palomet {

/// The toolkit's connection to the compositor; null where it has none.
[[nodiscard]] wl_display *toolkitDisplay();

} // namespace palomet
