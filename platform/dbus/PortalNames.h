#pragma once

#include <QString>

/// The names on the session bus of the desktop's portal, and of the parts of it that the program asks.
namespace palomet::portal {

using namespace Qt::StringLiterals;

inline const auto service = u"org.freedesktop.portal.Desktop"_s;
inline const auto path = u"/org/freedesktop/portal/desktop"_s;

inline const auto fileChooser = u"org.freedesktop.portal.FileChooser"_s;
inline const auto globalShortcuts = u"org.freedesktop.portal.GlobalShortcuts"_s;
inline const auto request = u"org.freedesktop.portal.Request"_s;
inline const auto session = u"org.freedesktop.portal.Session"_s;
inline const auto settings = u"org.freedesktop.portal.Settings"_s;

} // namespace palomet::portal
