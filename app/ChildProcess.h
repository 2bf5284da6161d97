#pragma once

#include "base/Result.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace palomet {

/// Port: a program that this one has started and looks after. Neither it nor what it has started outlives this program
/// by more than two seconds, however this program ends. It leads a group of its own, to which the processes that it
/// starts belong as long as they do not leave it. Main thread, except where something else is said. Destroying it ends
/// the whole group.
class ChildProcess {
public:
    /// The program to run. Nothing else of this process reaches it: no descriptor, no blocked or ignored
    /// signal; its standard input is empty.
    struct Launch {
        QString program;
        QStringList arguments;
        QString workingDirectory;
        /// Set over a copy of this process's own environment.
        std::vector<std::pair<QString, QString>> environment;
        /// The open descriptor that becomes its standard output and standard error; still the caller's.
        int output = -1;
    };

    ChildProcess() = default;
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;
    virtual ~ChildProcess() = default;

    /// Any thread.
    [[nodiscard]] virtual qint64 processId() const = 0;

    /// Any thread.
    [[nodiscard]] virtual bool isRunning() const = 0;

    /// Asks it to end. Any thread.
    virtual void terminate() = 0;

    /// Ends its children, then itself, without asking. Waits for the tool that does the former: any thread but the main
    /// one.
    virtual void killWithChildren() = 0;
};

/// Starts a program. `onExit` is called once, from the event loop, when it has ended and what was left of its group has
/// been ended too; the object may be destroyed from within, and after its destruction `onExit` is not called any more.
/// A program that could not be started is a failure, with the system's own words for the reason. Main thread.
using ChildProcessFactory =
    std::function<Result<std::unique_ptr<ChildProcess>>(const ChildProcess::Launch &, std::function<void()> onExit)>;

} // namespace palomet
