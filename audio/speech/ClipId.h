#pragma once

#include <QtGlobal>

#include <compare>

namespace palomet {

/// Which clip it is: the backend's number for it, and the connection by which it came, since every backend counts anew.
struct ClipId {
    qint64 number = -1; ///< A negative one is never reported.
    quint64 connection = 0;

    auto operator<=>(const ClipId &) const = default;
};

} // namespace palomet
