#pragma once

#include "base/Wakeup.h"
#include "platform/linux/Descriptor.h"

#include <QSocketNotifier>

namespace palomet {

/// A bell made of one eventfd: ringing it is one write that never blocks. The receiver's thread hears of it through a
/// socket notifier. Each bell holds one file descriptor, closed in child processes.
class EventWakeup final : public Wakeup {
public:
    /// A `WakeupFactory`. Without a file descriptor left the program cannot go on: fatal, as for Qt's own event loop.
    static std::unique_ptr<Wakeup> make(std::function<void()> onRaised);

    void raise() noexcept override;

private:
    EventWakeup(Descriptor descriptor, std::function<void()> onRaised);

    Descriptor m_descriptor;
    QSocketNotifier m_notifier;
};

} // namespace palomet
