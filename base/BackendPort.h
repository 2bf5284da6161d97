#pragma once

#include <QtGlobal>

namespace palomet {

/// The TCP port of 127.0.0.1 on which the backend serves everything.
inline constexpr quint16 backendPort = 4780;

} // namespace palomet
