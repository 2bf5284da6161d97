// on-private-network PROGRAM ARGUMENT…: runs a program with a loopback of its own, on which every port is free whatever
// else runs on this machine. Where the system forbids that it says so, and exits with 1.
//
// X servers announce themselves on the network, too: on networks of their own all of them are ":0". What they keep by
// that name (their sockets, the keymap that they compile) is private as well, or one would load the keymap of another.

#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
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

constexpr int wanted = CLONE_NEWNET | CLONE_NEWNS;

/// An ordinary user may have both inside a user namespace, which maps that user alone.
bool enterOwnUsers() {
    const auto user = std::to_string(getuid());
    const auto group = std::to_string(getgid());
    return unshare(CLONE_NEWUSER | wanted) == 0 && write("/proc/self/setgroups", "deny") &&
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

/// An empty folder in the place of a shared one, for this program and what it starts.
bool hide(const char *folder) {
    return mount("none", folder, "tmpfs", MS_NOSUID | MS_NODEV, "mode=1777") == 0 || errno == ENOENT;
}

/// The folders of the X servers. The first X server of a machine makes the second one.
bool hideDisplays() {
    constexpr auto sockets = "/tmp/.X11-unix";
    if (mkdir(sockets, 01777) == 0)
        chmod(sockets, 01777);
    return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 && hide("/var/lib/xkb") && hide(sockets);
}

} // namespace

int main(int argc, char **argv) {
    if (argc < 2)
        return 2;
    const bool isPrivate = (unshare(wanted) == 0 || enterOwnUsers()) && raiseLoopback() && hideDisplays();
    if (!isPrivate) {
        std::perror("on-private-network");
        return 1;
    }
    execvp(argv[1], argv + 1);
    std::perror(argv[1]);
    return 1;
}
