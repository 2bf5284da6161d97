#pragma once

#include "app/ChildProcess.h"
#include "app/LogFile.h"
#include "base/Scheduler.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <thread>

namespace palomet {

/// The supervisor of the voice backend, the program in the resource folder that does the real work: launches it, sends
/// what it says to the log, launches it again two seconds after it ended by itself, for ever, and ends it when the
/// application quits: politely first, by force after a while. Main thread, except where something else is said.
class Backend final : public QObject {
    Q_OBJECT

public:
    /// `resources` holds the runtime, "bun", and the folder "engine"; none means that nothing is ever launched. The log
    /// and the user's own tools are found below `home`. `scheduler` outlives this object.
    Backend(ChildProcessFactory startProcess, Scheduler &scheduler, std::optional<QString> resources, QString home);
    ~Backend() override;

    /// Launches the backend if that is possible at all. Only to be called when none is running.
    void start();

    /// Asks the backend to end, ends it by force when it is still there after `within`, and calls `done` when it is
    /// gone: at once if none is running, else from the event loop. Nothing is launched any more from now on. Called
    /// once.
    void stop(std::chrono::duration<double> within, std::function<void()> done);

    /// Waits for the end of what `stop` has begun, and lets it call `done`: for an end without an event loop.
    void awaitStop();

    /// Why the backend cannot run at all, if so.
    [[nodiscard]] const std::optional<QString> &problem() const { return m_problem; }

    /// Appends a line to the log, if there is one. Any thread.
    void note(const QString &line) const { m_log.note(line); }

    /// The search path of a backend that is launched for the user with this home: what users install for themselves
    /// wins, for a program launched by a desktop inherits little.
    [[nodiscard]] static QString toolPath(const QString &home);

private:
    void exited();
    void endWithin(std::chrono::duration<double> within, ChildProcess &process,
                   const std::stop_token &isAbandoned) const;
    [[nodiscard]] ChildProcess::Launch launch(const QString &program, int output) const;

    const ChildProcessFactory m_startProcess;
    Scheduler &m_scheduler;
    const std::optional<QString> m_resources;
    const QString m_home;
    const LogFile m_log;

    std::unique_ptr<ChildProcess> m_process;
    bool m_isQuitting = false;
    std::optional<QString> m_problem;
    Scheduler::Handle m_restart;
    /// Uses the process: it ends first.
    std::jthread m_waiter;
};

} // namespace palomet
