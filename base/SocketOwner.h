#pragma once

#include <QtGlobal>

#include <functional>

namespace palomet {

/// The owner of the program at the other end of a connection on this machine.
enum class SocketOwner {
    Ours,    ///< One of this process's own user.
    Others,  ///< Another user's, also the administrator's.
    Unknown, ///< Nobody is there, or the system does not say.
};

/// Port: whose program answers at a TCP port of 127.0.0.1: the peer of the connection that comes from the port `from`,
/// or whoever listens when that is 0. Any thread; a matter of microseconds where the system allows it.
using FindSocketOwner = std::function<SocketOwner(quint16 port, quint16 from)>;

} // namespace palomet
