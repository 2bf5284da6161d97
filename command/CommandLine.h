#pragma once

#include "base/Result.h"
#include "command/OptionHelp.h"
#include "command/RemoteCommand.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace palomet {

/// The program's arguments, understood.
struct CommandLine {
    enum class Mode {
        Run,       ///< Start, or open the window of the instance that runs.
        Preview,   ///< Show or capture a pane with sample data; the preview reads its own arguments.
        Command,   ///< Tell the running instance something.
        Status,    ///< Ask the running instance how it is.
        History,   ///< List what the backend keeps of past conversations.
        Autostart, ///< Start with the session or not any more, or say which.
        Doctor,    ///< Look at what works and what does not.
        Version,
        Help,
        Invalid, ///< `problem` says what is wrong.
    };

    enum class Autostart { On, Off, Status };

    Mode mode = Mode::Run;
    std::optional<RemoteCommand> command; ///< With `Command`.
    bool isTextOnInput = false;           ///< The command's text is to be read from standard input.
    bool isJson = false;                  ///< With `Status` and `History`.
    bool isFollowing = false;             ///< With `Status`.
    Autostart autostart = Autostart::Status;
    QString problem; ///< With `Invalid`, in one line.

    /// Reads the arguments, the program's name left out. "--preview" is looked for first and is lenient; all else is
    /// strict.
    static CommandLine parse(const QStringList &arguments);

    /// Longest text that a command takes, in bytes of UTF-8.
    static constexpr qsizetype maximumTextBytes = qsizetype{1024} * 1024;

    /// The text of a command as it is sent, or why it cannot be: blank, not UTF-8, too long. `bytes` may be one byte
    /// longer than the limit to show that there is more.
    static Result<QString> checkedText(const QByteArray &bytes);

    /// Every option, in the order in which a reader is told of them; `help` and the manual are made of it.
    static std::vector<OptionGroup> options();

    /// How the program is called, for a reader.
    static QString help();
};

} // namespace palomet
