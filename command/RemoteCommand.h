#pragma once

#include <QString>

#include <optional>

namespace palomet {

/// What a running Palomet is told from outside: the name of an action, and the text that goes with it, if any. The
/// names are those of the command line's options: "listen", "say", "open" and so on.
struct RemoteCommand {
    QString action;
    std::optional<QString> text;

    bool operator==(const RemoteCommand &) const = default;
};

/// What became of a command.
enum class RemoteOutcome {
    Done,
    Unknown, ///< There is no such action, or its text is not right.
    Busy,    ///< Too many commands are on their way to the backend.
};

} // namespace palomet
