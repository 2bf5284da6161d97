#pragma once

#include <QtGlobal>

namespace palomet {

/// Which clip it is: the backend's number for it, and the connection by which it came, since every backend counts anew.
struct ClipId {
    qint64 number = -1; ///< A negative one is never reported.
    quint64 connection = 0;

    bool operator==(const ClipId &) const = default;
    bool operator<(const ClipId &other) const {
        return number != other.number ? number < other.number : connection < other.connection;
    }
};

} // namespace palomet
