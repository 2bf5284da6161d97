#pragma once

#include <functional>

namespace palomet {

/// Port: whether the desktop asks programs to stand still. Main thread only.
class DesktopMotion {
public:
    DesktopMotion() = default;
    DesktopMotion(const DesktopMotion &) = delete;
    DesktopMotion &operator=(const DesktopMotion &) = delete;
    virtual ~DesktopMotion() = default;

    /// As last known; cheap. False while nothing is known.
    [[nodiscard]] virtual bool isReduced() const = 0;

    /// It is otherwise now. From the event loop.
    std::function<void()> onChange = [] {};
};

} // namespace palomet
