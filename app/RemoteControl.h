#pragma once

#include "base/Result.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace palomet {

/// What a running Palomet is told from outside: the name of an action, and the text that goes with it, if any. The
/// names are those of the command line's options: "listen", "say", "open" and so on.
struct RemoteCommand {
    QString action;
    std::optional<QString> text;

    bool operator==(const RemoteCommand &) const = default;
};

/// What a running Palomet tells of itself. No word of a conversation is in it.
struct RemoteStatus {
    QString state;  ///< The loop state's raw word, "waiting".
    QString device; ///< The microphone in use; empty while nothing is known of it.
    bool isMuted = false;
    bool isMicrophoneOn = false;
    QString hotKeyProblem{}; ///< Why the listen key does nothing, in the user's words; empty while all is well.

    bool operator==(const RemoteStatus &) const = default;
};

/// What became of a command.
enum class RemoteOutcome {
    Done,
    Unknown, ///< There is no such action, or its text is not right.
    Busy,    ///< Too many commands are on their way to the backend.
};

/// Port: the door at which other programs of this user knock. Main thread only.
class RemoteService {
public:
    enum class Claim {
        Primary, ///< This is the one running instance now.
        Taken,   ///< Another one runs, and has been told that somebody wants to see it.
        Absent,  ///< There is no bus: nobody can knock, and nobody can know of another instance.
    };

    RemoteService() = default;
    RemoteService(const RemoteService &) = delete;
    RemoteService &operator=(const RemoteService &) = delete;
    virtual ~RemoteService() = default;

    /// Tries to become the one running instance of this user. Once, before anything else is started.
    [[nodiscard]] virtual Claim claim() = 0;

    /// Keeps what is told of this instance current, and tells those who follow it of a change.
    virtual void publish(const RemoteStatus &status) = 0;

    /// Carries a command out. Set before `claim`.
    std::function<RemoteOutcome(const RemoteCommand &)> onCommand;

    /// Somebody wants to see the program. Set before `claim`.
    std::function<void()> onActivate;

    /// The bus has ended, another one has come, and on that one another instance was there first: that is the one
    /// running instance now. Set before `claim`.
    std::function<void()> onReplaced;
};

/// Port: the hand that knocks. Every call waits for its answer, at most a few seconds; it is for a short program that
/// does nothing else.
class RemoteClient {
public:
    RemoteClient() = default;
    RemoteClient(const RemoteClient &) = delete;
    RemoteClient &operator=(const RemoteClient &) = delete;
    virtual ~RemoteClient() = default;

    /// Nothing, or the reason why it was not done: none runs, there is no bus, it refused.
    [[nodiscard]] virtual std::optional<Failure> send(const RemoteCommand &command) = 0;

    [[nodiscard]] virtual Result<RemoteStatus> status() = 0;

    /// Calls `changed` for every status from now on, the present one first, and `gone` when the running instance has
    /// ended; from the event loop. Nothing, or the reason why there is none to follow.
    [[nodiscard]] virtual std::optional<Failure> follow(std::function<void(const RemoteStatus &)> changed,
                                                        std::function<void()> gone) = 0;

    /// Whether the running instance has ended within `limit`.
    [[nodiscard]] virtual bool waitUntilGone(std::chrono::milliseconds limit) = 0;
};

} // namespace palomet
