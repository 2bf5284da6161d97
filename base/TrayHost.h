#pragma once

#include <functional>

namespace palomet {

/// Port: the part of the desktop that shows tray items, which may come, go and come back. Main thread only.
class TrayHost {
public:
    enum class Status {
        NotDetermined, ///< The desktop has not answered yet.
        Absent,
        Present,
    };

    TrayHost() = default;
    TrayHost(const TrayHost &) = delete;
    TrayHost &operator=(const TrayHost &) = delete;
    virtual ~TrayHost() = default;

    /// As last known; cheap. Once it is determined it is never `NotDetermined` again.
    [[nodiscard]] virtual Status status() const = 0;

    /// The status is another. From the event loop.
    std::function<void()> onChange = [] {};
};

} // namespace palomet
