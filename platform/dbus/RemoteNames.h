#pragma once

#include <QString>

namespace palomet::remoteNames {

/// The bus name is the application's id, which is its desktop file's name too; the path follows from it.
inline const auto service = QStringLiteral("org.palomet.Palomet");
inline const auto path = QStringLiteral("/org/palomet/Palomet");
inline const auto application = QStringLiteral("org.freedesktop.Application");
inline const auto control = QStringLiteral("org.palomet.Palomet.Control");

} // namespace palomet::remoteNames
