#pragma once

#include "ui/shell/WindowManagement.h"

namespace palomet {

/// The toolkit tells a compositor all that it wants to know of a window, and brings it to the front by what the desktop
/// gave for that. Nobody brings a window to the front that lies behind others, without having been given anything.
class WaylandWindowManagement final : public WindowManagement {
public:
    void introduce(quintptr /*window*/) override {}
    [[nodiscard]] bool activate(quintptr /*window*/) override { return false; }
    [[nodiscard]] bool exposesCoveredWindows() const override { return false; }
    [[nodiscard]] bool holdsLeastSize() const override { return true; }
    [[nodiscard]] QSize untoldRoom() const override { return {0, 76}; }
    [[nodiscard]] bool raisesNewWindowsOnly() const override { return true; }
};

} // namespace palomet
