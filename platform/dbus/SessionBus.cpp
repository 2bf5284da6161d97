#include "platform/dbus/SessionBus.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QUuid>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace palomet {

using namespace std::chrono_literals;

namespace {

constexpr auto *variable = "DBUS_SESSION_BUS_ADDRESS";

/// The socket's name as the system takes it, "\0name" for one that is not in a folder; empty when the address is of
/// another kind, or names several.
QByteArray socketName() {
    const auto address = qgetenv(variable);
    // The usual address of a user's session bus.
    if (address.isEmpty() && qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        return qgetenv("XDG_RUNTIME_DIR") + "/bus";
    if (!address.startsWith("unix:") || address.contains(';'))
        return {};
    for (const auto &part : address.mid(5).split(',')) {
        if (part.startsWith("path="))
            return QByteArray::fromPercentEncoding(part.mid(5));
        if (part.startsWith("abstract="))
            return '\0' + QByteArray::fromPercentEncoding(part.mid(9));
    }
    return {};
}

bool connectTo(int socket, const QByteArray &name) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(name.size()) >= sizeof address.sun_path)
        return false;
    std::copy(name.begin(), name.end(), std::begin(address.sun_path));
    const bool isInFolder = name.front() != '\0';
    const auto size = offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size()) + (isInFolder ? 1 : 0);
    return connect(socket, reinterpret_cast<const sockaddr *>(&address), static_cast<socklen_t>(size)) == 0;
}

/// Whether the bus says anything at all to one who introduces himself.
bool isGreeted(int socket, std::chrono::milliseconds limit) {
    auto greeting = QByteArray("\0AUTH EXTERNAL ", 15) + QByteArray::number(geteuid()).toHex() + "\r\n";
    if (send(socket, greeting.constData(), static_cast<std::size_t>(greeting.size()), MSG_NOSIGNAL) != greeting.size())
        return false;
    pollfd answer{socket, POLLIN, 0};
    const QDeadlineTimer deadline(limit);
    while (poll(&answer, 1, static_cast<int>(deadline.remainingTime())) < 0) {
    }
    std::array<char, 1> letter{};
    return answer.revents != 0 && read(socket, letter.data(), letter.size()) == 1;
}

} // namespace

bool sessionBusAnswers(std::chrono::milliseconds limit) {
    const auto name = socketName();
    if (name.isEmpty())
        return true;
    // A full queue of one that hangs must not hold us either.
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const bool answers = connectTo(socket, name) && isGreeted(socket, limit);
    close(socket);
    return answers;
}

void forgetSessionBus() {
    qputenv(variable, "disabled:");
}

std::optional<QDBusConnection> connectToSessionBusAgain() {
    // To look for one that is nowhere named would start one.
    if (socketName().isEmpty() || !sessionBusAnswers(100ms))
        return std::nullopt;
    const auto name = QUuid::createUuid().toString();
    auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    if (bus.isConnected())
        return bus;
    QDBusConnection::disconnectFromBus(name);
    return std::nullopt;
}

} // namespace palomet
