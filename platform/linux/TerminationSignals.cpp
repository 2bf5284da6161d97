#include "platform/linux/TerminationSignals.h"

#include <QSocketNotifier>

#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <utility>

namespace palomet {

namespace {

constexpr std::array requests{SIGTERM, SIGINT, SIGHUP};

// A handler has nothing but global state to work with.
std::atomic<int> bell{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void ring(int) {
    const int before = errno;
    const std::uint64_t once = 1;
    [[maybe_unused]] const auto written = write(bell, &once, sizeof once);
    errno = before;
}

void handle(int number, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}

bool isIgnored(int number) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> onRequest)
    : m_onRequest(std::move(onRequest))
    , m_bell(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , m_notifier(std::make_unique<QSocketNotifier>(m_bell.get(), QSocketNotifier::Read)) {
    bell = m_bell.get();
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        std::uint64_t rings = 0;
        if (read(m_bell.get(), &rings, sizeof rings) == sizeof rings)
            m_onRequest();
    });
    handle(SIGPIPE, SIG_IGN);
    // A log that may not grow costs its lines only.
    handle(SIGXFSZ, SIG_IGN);
    // Inherited as ignored, it would hide the end of every child from us.
    handle(SIGCHLD, SIG_DFL);
    for (const int number : requests) {
        if (number != SIGHUP || !isIgnored(number))
            handle(number, ring);
    }
}

TerminationSignals::~TerminationSignals() {
    for (const int number : requests) {
        if (!isIgnored(number))
            handle(number, SIG_DFL);
    }
    bell = -1;
}

} // namespace palomet
