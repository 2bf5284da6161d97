#pragma once

#include "base/Scheduler.h"

namespace palomet {

/// The real clock, on the event loop of the thread that calls it. Timers are exact to the millisecond: what they drive
/// is part of what the program promises.
class QtScheduler final : public Scheduler {
public:
    [[nodiscard]] std::chrono::system_clock::time_point now() const override;
    [[nodiscard]] Handle after(std::chrono::milliseconds delay, std::function<void()> action) override;
    [[nodiscard]] Handle every(std::chrono::milliseconds period, std::function<void()> action) override;
};

} // namespace palomet
