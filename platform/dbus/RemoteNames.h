#pragma once

#include <QString>

namespace palomet::remoteNames {

using namespace Qt::StringLiterals;

/// The bus name is the application's id, which is its desktop file's name too; the path follows from it.
inline const auto service = u"org.palomet.Palomet"_s;
inline const auto path = u"/org/palomet/Palomet"_s;
inline const auto application = u"org.freedesktop.Application"_s;
inline const auto control = u"org.palomet.Palomet.Control"_s;

} // namespace palomet::remoteNames
