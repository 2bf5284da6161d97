#pragma once

#include "base/Result.h"
#include "command/RemoteCommand.h"
#include "command/RemoteStatus.h"

#include <chrono>
#include <functional>
#include <optional>

namespace palomet {

/// Port, client side: sends commands to the running instance. Every call waits for its answer, at most a few seconds:
/// it is for a short program that does nothing else.
class RemoteClient {
public:
    RemoteClient() = default;
    RemoteClient(const RemoteClient &) = delete;
    RemoteClient &operator=(const RemoteClient &) = delete;
    virtual ~RemoteClient() = default;

    /// Nothing, or the reason why it was not done: none runs, there is no bus, it refused.
    [[nodiscard]] virtual std::optional<Failure> send(const RemoteCommand &command) = 0;

    [[nodiscard]] virtual Result<RemoteStatus> status() = 0;

    /// Calls `changed` for every status from now on, the present one first, and `gone` when the running instance has
    /// ended; from the event loop. Nothing, or the reason why there is none to follow.
    [[nodiscard]] virtual std::optional<Failure> follow(std::function<void(const RemoteStatus &)> changed,
                                                        std::function<void()> gone) = 0;

    /// Whether the running instance has ended within `limit`.
    [[nodiscard]] virtual bool waitUntilGone(std::chrono::milliseconds limit) = 0;
};

} // namespace palomet
