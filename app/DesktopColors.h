#pragma once

#include <functional>

namespace palomet {

/// Port: whether the desktop's panels are light or dark. Main thread only.
class DesktopColors {
public:
    enum class Scheme { Light, Dark };

    DesktopColors() = default;
    DesktopColors(const DesktopColors &) = delete;
    DesktopColors &operator=(const DesktopColors &) = delete;
    virtual ~DesktopColors() = default;

    /// As last known; cheap. Light while nothing is known.
    [[nodiscard]] virtual Scheme panelScheme() const = 0;

    /// The scheme is another. From the event loop.
    std::function<void()> onChange = [] {};
};

} // namespace palomet
