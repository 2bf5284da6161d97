#pragma once

#include <functional>
#include <memory>

namespace palomet {

/// Port: a bell that a real-time thread can ring. `raise` takes no lock, allocates nothing and never waits; the
/// receiver hears of it on its own event loop. Rings that come close together may be heard as one.
class Wakeup {
public:
    Wakeup() = default;
    Wakeup(const Wakeup &) = delete;
    Wakeup &operator=(const Wakeup &) = delete;
    virtual ~Wakeup() = default;

    /// Any thread. After it returns, the receiver is going to be called at least once more.
    virtual void raise() noexcept = 0;
};

/// Makes a bell whose `onRaised` is called on the thread that calls this, which must run an event loop. The bell is
/// destroyed on that same thread, once nobody can ring it any more.
using WakeupFactory = std::function<std::unique_ptr<Wakeup>(std::function<void()> onRaised)>;

} // namespace palomet
