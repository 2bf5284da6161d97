#pragma once

#include <QDBusConnection>

#include <chrono>
#include <optional>

namespace palomet {

/// Whether somebody answers at the session bus's address. A bus that takes connections and says nothing would hold
/// whoever connects for half a minute, so that is found out first: at once where it is well or gone, after `limit`
/// where it hangs. An address of a kind that is not known here counts as one that answers.
[[nodiscard]] bool sessionBusAnswers(std::chrono::milliseconds limit);

/// From now on this process, its toolkit and whatever it starts see no session bus. Before anybody has connected.
void forgetSessionBus();

/// Another connection to the session bus, where one answers: it may be another bus than the one before, at the same
/// address. Waits a tenth of a second at most.
[[nodiscard]] std::optional<QDBusConnection> connectToSessionBusAgain();

} // namespace palomet
