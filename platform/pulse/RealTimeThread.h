#pragma once

#include <QDBusConnection>

#include <sys/types.h>

namespace palomet {

/// Lets the calling thread run before every ordinary one, whatever the machine is busy with; false when this user may
/// not. Programs that the thread starts do not inherit it.
[[nodiscard]] bool makeThisThreadRealTime() noexcept;

/// Asks RealtimeKit, which may grant on this system bus what the user may not take, the same for a thread of this
/// program. Nobody waits for the answer: without it, sound is as it was.
void askForRealTime(const QDBusConnection &systemBus, pid_t thread);

} // namespace palomet
