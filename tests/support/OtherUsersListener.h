#pragma once

#include <QtGlobal>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>

namespace palomet::test {

/// A program of another user that listens at a port of the loopback interface, takes every connection, and keeps what
/// it is told. Only the administrator can make one.
class OtherUsersListener {
public:
    static bool isPossible() { return geteuid() == 0; }

    /// It listens when this returns. 0: at a port of its choice.
    explicit OtherUsersListener(quint16 port = 0) {
        std::array<int, 2> heard{};
        std::array<int, 2> ready{};
        if (pipe2(heard.data(), O_CLOEXEC | O_NONBLOCK) != 0 || pipe2(ready.data(), O_CLOEXEC) != 0)
            return;
        m_process = fork();
        if (m_process == 0)
            listen(port, heard[1], ready[1]);
        close(heard[1]);
        close(ready[1]);
        m_heard = heard[0];
        if (read(ready[0], &m_port, sizeof m_port) != sizeof m_port)
            m_port = 0;
        close(ready[0]);
    }
    OtherUsersListener(const OtherUsersListener &) = delete;
    OtherUsersListener &operator=(const OtherUsersListener &) = delete;
    ~OtherUsersListener() {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        close(m_heard);
    }

    /// 0 when it could not listen.
    [[nodiscard]] quint16 port() const { return m_port; }

    /// A letter for each connection, and then everything that was told by any of them.
    [[nodiscard]] std::string heard() {
        std::array<char, 4096> piece{};
        for (ssize_t length = 0; (length = read(m_heard, piece.data(), piece.size())) > 0;)
            m_all.append(piece.data(), static_cast<std::size_t>(length));
        return m_all;
    }

private:
    [[noreturn]] static void listen(quint16 port, int heard, int ready) {
        constexpr uid_t nobody = 65534;
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto *generic = reinterpret_cast<sockaddr *>(&address);
        const int reuse = 1;
        if (setresgid(nobody, nobody, nobody) != 0 || setresuid(nobody, nobody, nobody) != 0)
            _exit(1);
        const int listener = socket(AF_INET, SOCK_STREAM, 0);
        setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse);
        if (bind(listener, generic, size) != 0 || ::listen(listener, 16) != 0 ||
            getsockname(listener, generic, &size) != 0)
            _exit(1);
        const quint16 taken = ntohs(address.sin_port);
        if (write(ready, &taken, sizeof taken) != sizeof taken)
            _exit(1);
        hear(listener, heard);
    }

    [[noreturn]] static void hear(int listener, int heard) {
        std::array<pollfd, 64> sockets{};
        nfds_t count = 1;
        sockets[0] = {listener, POLLIN, 0};
        while (poll(sockets.data(), count, -1) > 0) {
            if ((sockets[0].revents & POLLIN) != 0 && count < sockets.size()) {
                sockets[count++] = {accept(listener, nullptr, nullptr), POLLIN, 0};
                tell(heard, "c", 1);
                continue;
            }
            for (nfds_t index = 1; index < count; ++index) {
                std::array<char, 4096> piece{};
                if ((sockets[index].revents & (POLLIN | POLLHUP)) == 0)
                    continue;
                const auto length = read(sockets[index].fd, piece.data(), piece.size());
                if (length > 0)
                    tell(heard, piece.data(), static_cast<std::size_t>(length));
                else
                    sockets[index].fd = -1;
            }
        }
        _exit(0);
    }

    static void tell(int heard, const char *bytes, std::size_t size) {
        [[maybe_unused]] const auto written = write(heard, bytes, size);
    }

    pid_t m_process = -1;
    int m_heard = -1;
    quint16 m_port = 0;
    std::string m_all;
};

} // namespace palomet::test
