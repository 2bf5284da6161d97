#include "platform/linux/EventWakeup.h"

#include <QtGlobal>

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

namespace palomet {

std::unique_ptr<Wakeup> EventWakeup::make(std::function<void()> onRaised) {
    Descriptor descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!descriptor.isOpen())
        qFatal("eventfd: %s", std::strerror(errno));
    return std::unique_ptr<Wakeup>(new EventWakeup(std::move(descriptor), std::move(onRaised)));
}

EventWakeup::EventWakeup(Descriptor descriptor, std::function<void()> onRaised)
    : m_descriptor(std::move(descriptor))
    , m_notifier(m_descriptor.get(), QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [descriptor = m_descriptor.get(), onRaised = std::move(onRaised)] {
                         // Cleared first: a ring that comes while the receiver works is heard as another one.
                         std::uint64_t rings = 0;
                         if (read(descriptor, &rings, sizeof rings) != sizeof rings)
                             return;
                         // The receiver may destroy the bell, and this function with it: run a copy.
                         const auto running = onRaised;
                         running();
                     });
}

void EventWakeup::raise() noexcept {
    const std::uint64_t ring = 1;
    // It fails only when the counter is full, which is a bell that rings already.
    [[maybe_unused]] const auto written = write(m_descriptor.get(), &ring, sizeof ring);
}

} // namespace palomet
