#include "platform/pulse/RealTimeThread.h"

#include <QDBusMessage>

#include <sched.h>
#include <sys/resource.h>

#include <algorithm>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

/// Below the sound server's own threads, which have 5 and more.
constexpr int priority = 4;

/// RealtimeKit helps only those who cannot block the machine: who computes longer than this at a stretch is ended. The
/// sound thread computes for one millisecond, then waits.
constexpr rlim_t longestStretchMicroseconds = 200'000;

} // namespace

bool makeThisThreadRealTime() noexcept {
    sched_param parameters{};
    parameters.sched_priority = priority;
    return sched_setscheduler(0, SCHED_RR | SCHED_RESET_ON_FORK, &parameters) == 0;
}

void askForRealTime(const QDBusConnection &systemBus, pid_t thread) {
    rlimit limit{};
    if (getrlimit(RLIMIT_RTTIME, &limit) < 0)
        return;
    limit.rlim_max = std::min(limit.rlim_max, longestStretchMicroseconds);
    limit.rlim_cur = limit.rlim_max;
    if (setrlimit(RLIMIT_RTTIME, &limit) < 0)
        return;
    auto message = QDBusMessage::createMethodCall(u"org.freedesktop.RealtimeKit1"_s, u"/org/freedesktop/RealtimeKit1"_s,
                                                  u"org.freedesktop.RealtimeKit1"_s, u"MakeThreadRealtime"_s);
    message << quint64(thread) << quint32(priority);
    systemBus.send(message);
}

} // namespace palomet
