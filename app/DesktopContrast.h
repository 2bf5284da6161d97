#pragma once

#include <functional>

namespace palomet {

/// Port: whether the desktop asks programs for more contrast. Main thread only.
class DesktopContrast {
public:
    DesktopContrast() = default;
    DesktopContrast(const DesktopContrast &) = delete;
    DesktopContrast &operator=(const DesktopContrast &) = delete;
    virtual ~DesktopContrast() = default;

    /// As last known; cheap. False while nothing is known.
    [[nodiscard]] virtual bool isRaised() const = 0;

    /// It is otherwise now. From the event loop.
    std::function<void()> onChange = [] {};
};

} // namespace palomet
