#pragma once

#include "app/ChildProcess.h"
#include "platform/linux/Descriptor.h"

#include <sys/types.h>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace palomet {

class GroupGuard;

/// Takes the ended child out of the process table; whether there was something to take. `flags` are those of `waitid`.
bool reap(pid_t child, int flags);

/// A child of this process that runs, and leads a process group of its own.
class LinuxChildProcess final : public ChildProcess {
public:
    /// `handle` is the child's pidfd, `guard` looks after it or is null. `onExit` is called once, from the event loop;
    /// it may destroy this.
    LinuxChildProcess(pid_t child, Descriptor handle, std::shared_ptr<GroupGuard> guard, std::function<void()> onExit);
    ~LinuxChildProcess() override;

    [[nodiscard]] qint64 processId() const override { return m_child; }
    [[nodiscard]] bool isRunning() const override;
    void terminate() override;
    void killWithChildren() override;

private:
    void handleExit();
    void dismissGuard();
    void releaseNotifier();

    const pid_t m_child;
    std::shared_ptr<GroupGuard> m_guard;
    Descriptor m_handle;
    QSocketNotifier *m_notifier;
    std::function<void()> m_onExit;
    bool m_isReaped = false;
};

} // namespace palomet
