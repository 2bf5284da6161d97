#pragma once

#include <functional>

namespace palomet {

enum class MicrophoneStatus { NotDetermined, Restricted, Denied, Authorized };

/// Port: whether this user lets this program hear. Main thread only.
class MicrophonePermission {
public:
    MicrophonePermission() = default;
    MicrophonePermission(const MicrophonePermission &) = delete;
    MicrophonePermission &operator=(const MicrophonePermission &) = delete;
    virtual ~MicrophonePermission() = default;

    /// As last known; cheap. Once it is determined it is never `NotDetermined` again.
    [[nodiscard]] virtual MicrophoneStatus status() const = 0;

    /// Asks, and calls `answered` exactly once, from the event loop, when the status is determined; at most a second
    /// later.
    virtual void request(std::function<void()> answered) = 0;
};

} // namespace palomet
