#include "platform/linux/GroupGuard.h"

#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

/// How the guard begins: in a session of its own, so that a terminal's keys do not reach it, with nothing of this
/// process but its end of the line.
class Beginning {
public:
    explicit Beginning(int line) {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_adddup2(&m_actions, line, STDIN_FILENO);
        for (const int output : {STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&m_actions, output, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
        posix_spawn_file_actions_addchdir_np(&m_actions, "/");
        posix_spawnattr_init(&m_attributes);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK);
    }
    Beginning(const Beginning &) = delete;
    Beginning &operator=(const Beginning &) = delete;
    ~Beginning() {
        posix_spawnattr_destroy(&m_attributes);
        posix_spawn_file_actions_destroy(&m_actions);
    }

    /// Runs it, and waits until it has detached itself; whether it has.
    [[nodiscard]] bool run(const QByteArray &program) const {
        std::array name{'g', 'r', 'o', 'u', 'p', '-', 'g', 'u', 'a', 'r', 'd', '\0'};
        std::array arguments{name.data(), static_cast<char *>(nullptr)};
        std::array environment{static_cast<char *>(nullptr)};
        pid_t process = 0;
        if (posix_spawn(&process, program.constData(), &m_actions, &m_attributes, arguments.data(),
                        environment.data()) != 0)
            return false;
        int status = 0;
        while (waitpid(process, &status, 0) < 0) {
            if (errno != EINTR)
                return false;
        }
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

} // namespace

GroupGuard::GroupGuard(QString program)
    : m_program(std::move(program)) {
    start();
}

GroupGuard::~GroupGuard() {
    delete m_notifier;
}

bool GroupGuard::tell(int descriptor, pid_t child) {
    return send(descriptor, &child, sizeof child, MSG_NOSIGNAL) == sizeof child;
}

void GroupGuard::forget() {
    m_child = 0;
    if (isThere())
        tell(m_line.get(), 0);
}

void GroupGuard::start() {
    std::array<int, 2> ends{-1, -1};
    if (m_program.isEmpty() || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return;
    const Descriptor ours(ends[0]);
    const Descriptor theirs(ends[1]);
    // Before the guard runs, so that there is none that does not know whom it guards.
    if (m_child > 0)
        tell(ours.get(), m_child);
    if (!Beginning(theirs.get()).run(QFile::encodeName(m_program)))
        return;
    m_line = Descriptor(fcntl(ours.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    if (isThere())
        watch();
}

void GroupGuard::watch() {
    m_notifier = new QSocketNotifier(m_line.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier, &QSocketNotifier::activated, m_notifier, [this] { handleEnd(); });
}

void GroupGuard::handleEnd() {
    m_notifier->setEnabled(false);
    // Later: it is the one that is calling.
    std::exchange(m_notifier, nullptr)->deleteLater();
    m_line.reset();
    start();
}

QString guardProgram(const QString &executableFolder) {
    for (const auto &path : {u"/group-guard"_s, u"/../lib/palomet/group-guard"_s}) {
        if (QFileInfo(executableFolder + path).isExecutable())
            return executableFolder + path;
    }
    return {};
}

} // namespace palomet
