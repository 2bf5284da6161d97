#pragma once

#include <QDBusConnection>

namespace palomet {

/// Whether the desktop's portal takes requests for global shortcuts, which it may know of and still refuse to
/// everybody, where the desktop has nobody for them. It is found out by a session of its own, without shortcuts, that
/// asks the user nothing and is closed at once. Waits for the answers, two seconds at most; it is for a short program
/// that does nothing else.
[[nodiscard]] bool grantsGlobalShortcuts(const QDBusConnection &bus);

} // namespace palomet
