// group-guard: ends a program and everything that it has started once nobody is left to look after it. Its standard
// input is a socket that the one who looks after the program holds: the number of the program's process comes first,
// and the end of the input says that the holder has gone, however that happened. It is a program of its own, and a
// small one, because a copy of the holder would keep all the holder's memory.

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

/// After this whoever was asked to end is ended; the whole of it is over well within two seconds.
constexpr int patience = 1000;
constexpr int glance = 50;
/// How often it is looked whether somebody has been started meanwhile by one who was not stopped yet.
constexpr int rounds = 20;

struct Process {
    pid_t id = 0;
    unsigned long long startedAt = 0; ///< Tells it from a later one with the same number.

    bool operator==(const Process &) const = default;
};

struct Status {
    Process process;
    pid_t parent = 0;
    pid_t group = 0;
    bool isAlive = false;
};

/// A process as the system tells of it; one that is not there is not alive.
Status statusOf(pid_t id) {
    std::array<char, 32> path{};
    std::snprintf(path.data(), path.size(), "/proc/%d/stat", id);
    const int file = open(path.data(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return {};
    std::array<char, 1024> line{};
    const auto length = read(file, line.data(), line.size() - 1);
    close(file);
    // The name stands in brackets and may hold anything, brackets too.
    const char *rest = length > 0 ? std::strrchr(line.data(), ')') : nullptr;
    Status status;
    char state = 0;
    if (rest == nullptr ||
        std::sscanf(rest + 1, " %c %d %d %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %llu", &state,
                    &status.parent, &status.group, &status.process.startedAt) != 4)
        return {};
    status.process.id = id;
    status.isAlive = state != 'Z' && state != 'X';
    return status;
}

/// A program with all that it has started, as far as that can be told: its group, and every process that descends from
/// one of them, whatever group or session that has made.
class Family {
public:
    constexpr Family() = default;

    /// Of whom it is from now on; 0: nobody's.
    void begin(pid_t first) {
        m_size = 0;
        if (first > 1)
            add({first, statusOf(first).process.startedAt});
    }

    [[nodiscard]] bool isEmpty() const { return m_size == 0; }

    /// Looks around for those who belong to it; whether there are new ones.
    bool grow() {
        const std::size_t before = m_size;
        // A child may stand before its parent.
        for (std::size_t known = 0; known != m_size;) {
            known = m_size;
            lookAround();
        }
        return m_size > before;
    }

    void send(int signal) const {
        for (std::size_t index = 0; index < m_size; ++index) {
            if (isAlive(m_members[index]))
                kill(m_members[index].id, signal);
        }
    }

    [[nodiscard]] bool isAnyAlive() const {
        for (std::size_t index = 0; index < m_size; ++index) {
            if (isAlive(m_members[index]))
                return true;
        }
        return false;
    }

private:
    static bool isAlive(const Process &process) {
        const auto status = statusOf(process.id);
        return status.isAlive && status.process == process;
    }

    void lookAround() {
        DIR *folder = opendir("/proc");
        if (folder == nullptr)
            return;
        while (const dirent *entry = readdir(folder)) {
            const auto id = static_cast<pid_t>(std::strtol(entry->d_name, nullptr, 10));
            if (id <= 1 || id == getpid())
                continue;
            const auto status = statusOf(id);
            if (status.isAlive && (status.group == m_members[0].id || has(status.parent)))
                add(status.process);
        }
        closedir(folder);
    }

    [[nodiscard]] bool has(pid_t id) const {
        for (std::size_t index = 0; index < m_size; ++index) {
            if (m_members[index].id == id)
                return true;
        }
        return false;
    }

    void add(const Process &process) {
        for (std::size_t index = 0; index < m_size; ++index) {
            if (m_members[index] == process)
                return;
        }
        if (m_size < m_members.size())
            m_members[m_size++] = process;
    }

    std::size_t m_size = 0;
    std::array<Process, 4096> m_members{};
};

// Large, and hardly ever needed: memory that nobody has touched costs nothing.
constinit Family family;

void end() {
    family.grow();
    family.send(SIGTERM);
    for (int waited = 0; waited < patience; waited += glance) {
        if (!family.isAnyAlive())
            return;
        poll(nullptr, 0, glance);
        family.grow();
    }
    // A stopped process starts no other.
    for (int round = 0; round < rounds; ++round) {
        family.send(SIGSTOP);
        if (!family.grow())
            break;
    }
    family.send(SIGKILL);
}

/// Reads all that was asked for; false when the input ends before.
bool readInput(void *into, std::size_t size) {
    auto *next = static_cast<char *>(into);
    while (size > 0) {
        const auto length = read(STDIN_FILENO, next, size);
        if (length < 0 && errno == EINTR)
            continue;
        if (length <= 0)
            return false;
        next += length;
        size -= static_cast<std::size_t>(length);
    }
    return true;
}

} // namespace

int main() {
    // A signal that ends the front end must not end the guard before it has done its work.
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGPIPE})
        signal(number, SIG_IGN);
    // Nobody's child: it is no business of whoever looks at the children of the one that started it.
    if (fork() != 0)
        return 0;
    for (pid_t first = 0; readInput(&first, sizeof first);)
        family.begin(first);
    if (!family.isEmpty())
        end();
    return 0;
}
