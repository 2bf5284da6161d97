#include "platform/linux/WaylandSocket.h"

#include "platform/linux/Descriptor.h"

#include <QDir>
#include <QFile>

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <iterator>

namespace palomet {

bool hasWaylandDisplay() {
    // An open connection that was handed down.
    if (!qEnvironmentVariableIsEmpty("WAYLAND_SOCKET"))
        return true;
    const auto display = qEnvironmentVariable("WAYLAND_DISPLAY", QStringLiteral("wayland-0"));
    const auto path = QFile::encodeName(QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).absoluteFilePath(display));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(path.size()) >= sizeof address.sun_path)
        return false;
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return connect(socket.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
}

} // namespace palomet
