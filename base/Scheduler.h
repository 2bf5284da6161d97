#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace palomet {

/// Port: time, as the main thread sees it. Everything that waits takes one, so that a test can play a day in a moment.
/// Main thread only.
class Scheduler {
public:
    /// A thing that is going to happen; destroying it means that it will not. It may be destroyed from within its own
    /// action, and must not outlive its scheduler.
    class Pending {
    public:
        Pending() = default;
        Pending(const Pending &) = delete;
        Pending &operator=(const Pending &) = delete;
        virtual ~Pending() = default;
        /// Whether the action is still to come.
        [[nodiscard]] virtual bool isActive() const = 0;
    };
    using Handle = std::unique_ptr<Pending>;

    Scheduler() = default;
    Scheduler(const Scheduler &) = delete;
    Scheduler &operator=(const Scheduler &) = delete;
    virtual ~Scheduler() = default;

    /// The time of day.
    [[nodiscard]] virtual std::chrono::system_clock::time_point now() const = 0;

    /// Runs `action` once, `delay` from now, from the event loop (never from within this call).
    [[nodiscard]] virtual Handle after(std::chrono::milliseconds delay, std::function<void()> action) = 0;

    /// Runs `action` every `period`, the first time one period from now.
    [[nodiscard]] virtual Handle every(std::chrono::milliseconds period, std::function<void()> action) = 0;
};

} // namespace palomet
