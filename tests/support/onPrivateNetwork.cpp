// on-private-network PROGRAM ARGUMENT…: runs a program with a loopback of its own, on which every port is free whatever
// else runs on this machine. Where the system forbids that it says so, and exits with 1.

#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <string_view>

namespace {

bool write(const char *path, std::string_view text) {
    const int file = ::open(path, O_WRONLY | O_CLOEXEC);
    const bool isWritten = file >= 0 && ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::close(file);
    return isWritten;
}

/// Who may not have a network may still be somebody who may, in a world where nobody else is known.
bool enterOwnUsers() {
    const auto user = std::to_string(getuid());
    const auto group = std::to_string(getgid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0 && write("/proc/self/setgroups", "deny") &&
           write("/proc/self/uid_map", user + ' ' + user + " 1") &&
           write("/proc/self/gid_map", group + ' ' + group + " 1");
}

bool raiseLoopback() {
    const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{.ifr_ifrn = {"lo"}, .ifr_ifru = {}};
    bool isUp = ioctl(socket, SIOCGIFFLAGS, &request) == 0;
    request.ifr_flags |= IFF_UP;
    isUp = isUp && ioctl(socket, SIOCSIFFLAGS, &request) == 0;
    ::close(socket);
    return isUp;
}

} // namespace

int main(int argc, char **argv) {
    if (argc < 2)
        return 2;
    const bool isPrivate = (unshare(CLONE_NEWNET) == 0 && raiseLoopback()) || (enterOwnUsers() && raiseLoopback());
    if (!isPrivate) {
        std::perror("on-private-network");
        return 1;
    }
    execvp(argv[1], argv + 1);
    std::perror(argv[1]);
    return 1;
}
