#pragma once

#include <QString>

/// The names on the session bus of the desktop's portal, and of the parts of it that the program asks.
namespace palomet::portal {

inline const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
inline const auto path = QStringLiteral("/org/freedesktop/portal/desktop");

inline const auto fileChooser = QStringLiteral("org.freedesktop.portal.FileChooser");
inline const auto globalShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
inline const auto request = QStringLiteral("org.freedesktop.portal.Request");
inline const auto session = QStringLiteral("org.freedesktop.portal.Session");
inline const auto settings = QStringLiteral("org.freedesktop.portal.Settings");

} // namespace palomet::portal
