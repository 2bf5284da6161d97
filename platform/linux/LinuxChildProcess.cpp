#include "platform/linux/LinuxChildProcess.h"

#include "platform/linux/GroupGuard.h"

#include <QSocketNotifier>

#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <string>
#include <utility>

// The header of glibc 2.36 does not say that its functions are C.
extern "C" {
#include <sys/pidfd.h>
}

namespace palomet {

namespace {

bool hasEnded(const Descriptor &handle, int milliseconds = 0) {
    pollfd state{handle.get(), POLLIN, 0};
    return poll(&state, 1, milliseconds) == 1;
}

} // namespace

bool reap(pid_t child, int flags) {
    siginfo_t info{};
    int result;
    do {
        result = waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | flags);
    } while (result != 0 && errno == EINTR);
    // Somebody else's reaping counts as well: the child is gone.
    return result != 0 || info.si_pid == child;
}

LinuxChildProcess::LinuxChildProcess(pid_t child, Descriptor handle, std::shared_ptr<GroupGuard> guard,
                                     std::function<void()> onExit)
    : m_child(child)
    , m_guard(std::move(guard))
    , m_handle(std::move(handle))
    , m_notifier(new QSocketNotifier(m_handle.get(), QSocketNotifier::Read))
    , m_onExit(std::move(onExit)) {
    QObject::connect(m_notifier, &QSocketNotifier::activated, m_notifier, [this] { handleExit(); });
}

LinuxChildProcess::~LinuxChildProcess() {
    releaseNotifier();
    if (m_isReaped)
        return;
    kill(-m_child, SIGKILL);
    // A moment is enough for whatever can be killed at all; the system reaps the rest after us.
    if (hasEnded(m_handle, 1000))
        reap(m_child, WNOHANG);
    dismissGuard();
}

bool LinuxChildProcess::isRunning() const {
    return !hasEnded(m_handle);
}

void LinuxChildProcess::terminate() {
    pidfd_send_signal(m_handle.get(), SIGTERM, nullptr, 0);
}

void LinuxChildProcess::killWithChildren() {
    std::string tool = "pkill";
    std::string option = "-KILL";
    std::string byParent = "-P";
    std::string parent = std::to_string(m_child);
    std::array arguments{tool.data(), option.data(), byParent.data(), parent.data(), static_cast<char *>(nullptr)};
    pid_t killer = 0;
    if (posix_spawn(&killer, "/usr/bin/pkill", nullptr, nullptr, arguments.data(), environ) == 0)
        reap(killer, 0);
    pidfd_send_signal(m_handle.get(), SIGKILL, nullptr, 0);
}

void LinuxChildProcess::handleExit() {
    // Left in the process table for the moment: as long as it stands there, the number of its group is nobody
    // else's.
    if (!reap(m_child, WNOHANG | WNOWAIT))
        return;
    releaseNotifier();
    kill(-m_child, SIGKILL);
    reap(m_child, WNOHANG);
    m_isReaped = true;
    dismissGuard();
    // It may destroy this object.
    const auto onExit = std::move(m_onExit);
    onExit();
}

void LinuxChildProcess::dismissGuard() {
    if (m_guard)
        m_guard->forget();
}

void LinuxChildProcess::releaseNotifier() {
    if (m_notifier == nullptr)
        return;
    m_notifier->setEnabled(false);
    // Later: it may be the one that is calling.
    std::exchange(m_notifier, nullptr)->deleteLater();
}

} // namespace palomet
