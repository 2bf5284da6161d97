#pragma once

#include "platform/linux/Descriptor.h"

#include <QString>

#include <sys/types.h>

#include <memory>

class QSocketNotifier;

namespace palomet {

/// Sees to it that a child process and all that it has started end within two seconds of this process, also when this
/// one is killed: a tiny program beside the child that waits for this process's end, asks the child's group and all its
/// descendants to end, and a second later ends who is left. It is nobody's child, is started again when it was killed,
/// and ends with this object. One child at a time. Main thread.
class GroupGuard {
public:
    /// `program` is the guard's; whether there is a guard then is to be asked.
    explicit GroupGuard(QString program);
    GroupGuard(const GroupGuard &) = delete;
    GroupGuard &operator=(const GroupGuard &) = delete;
    ~GroupGuard();

    [[nodiscard]] bool isThere() const { return m_line.isOpen(); }

    /// The descriptor by which a child tells the guard of itself, above the three standard ones; -1 without a guard.
    [[nodiscard]] int descriptor() const { return m_line.get(); }

    /// Tells of the process `child` through the descriptor; whether that could be done. Async-signal-safe: the child
    /// itself does it, so that there is no moment at which it runs and nobody guards it.
    static bool tell(int descriptor, pid_t child);

    /// The child that has told of itself, for the guard that takes this one's place.
    void keep(pid_t child) { m_child = child; }

    /// The child has ended: there is nobody to be guarded.
    void forget();

private:
    void start();
    void watch();
    void handleEnd();

    const QString m_program;
    pid_t m_child = 0;
    Descriptor m_line; ///< Whose end is the guard's sign, and whose guard's end is ours.
    QSocketNotifier *m_notifier = nullptr;
};

/// The guard's program, where the build and the package put it for a program in `executableFolder`; empty when it is
/// not there.
[[nodiscard]] QString guardProgram(const QString &executableFolder);

} // namespace palomet
