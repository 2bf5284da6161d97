#pragma once

#include "base/Callback.h"
#include "command/RemoteCommand.h"
#include "command/RemoteStatus.h"

namespace palomet {

/// Port, server side: takes commands from other programs of this user. Main thread only.
class RemoteService {
public:
    enum class Claim {
        Primary, ///< This is the one running instance now.
        Taken,   ///< Another one runs, and has been told that somebody wants to see it.
        Absent,  ///< There is no bus: no command can come, and another instance cannot be known.
    };

    RemoteService() = default;
    RemoteService(const RemoteService &) = delete;
    RemoteService &operator=(const RemoteService &) = delete;
    virtual ~RemoteService() = default;

    /// Tries to become the one running instance of this user. Once, before anything else is started. Another instance
    /// that runs gets `activation`, as `RemoteCommand` has it.
    [[nodiscard]] virtual Claim claim(const QString &activation) = 0;

    /// Keeps what is told of this instance current, and tells those who follow it of a change.
    virtual void publish(const RemoteStatus &status) = 0;

    /// Carries a command out. Set before `claim`.
    Callback<RemoteOutcome(const RemoteCommand &)> onCommand;

    /// Somebody wants to see the program, and has got `activation` for it, as `RemoteCommand` has it. Set before
    /// `claim`.
    Callback<void(const QString &activation)> onActivate;

    /// The bus has ended, another one has come, and on that one another instance was there first: that is the one
    /// running instance now. Set before `claim`.
    Callback<void()> onReplaced;
};

} // namespace palomet
