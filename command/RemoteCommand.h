#pragma once

#include <QString>

#include <optional>

namespace palomet {

/// A command to a running Palomet from outside: the name of an action, and the text that goes with it, if any. The
/// names are those of the command line's options: "listen", "say", "open" and so on.
struct RemoteCommand {
    QString action;
    std::optional<QString> text;
    /// What the desktop gave for this command, so that a window may come to the front: an activation token or a startup
    /// id; empty without one.
    QString activation{};

    bool operator==(const RemoteCommand &) const = default;
};

/// The outcome of a command.
enum class RemoteOutcome {
    Unknown, ///< There is no such action, or its text is not right.
    Done,
    Busy, ///< Too many commands are on their way to the backend.
};

} // namespace palomet
