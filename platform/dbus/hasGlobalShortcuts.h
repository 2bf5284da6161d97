#pragma once

#include <QDBusConnection>

namespace palomet {

/// Whether the desktop's portal knows of global shortcuts at all. Waits for its answer, two seconds at most; it is for
/// a short program that does nothing else.
[[nodiscard]] bool hasGlobalShortcuts(const QDBusConnection &bus);

} // namespace palomet
