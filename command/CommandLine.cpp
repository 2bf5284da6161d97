#include "command/CommandLine.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

enum class Argument { None, Text, Pane };

struct Option {
    QLatin1StringView name;
    Argument argument;
    const char *meaning;
};

// Commands to the running instance; the option's name without its dashes is the action's.
constexpr std::array commands{
    Option{"--listen"_L1, Argument::None, "start listening"},
    Option{"--stop"_L1, Argument::None, "stop listening, thinking or speaking"},
    Option{"--mute"_L1, Argument::None, "mute, or unmute"},
    Option{"--new"_L1, Argument::None, "begin a new conversation"},
    Option{"--say"_L1, Argument::Text, "say TEXT to the agent; \"-\" reads it from standard input"},
    Option{"--act"_L1, Argument::None, "act on the draft"},
    Option{"--clear-draft"_L1, Argument::None, "clear the draft"},
    Option{"--open"_L1, Argument::Pane, "open the window, on PANE if given: now, history, listening, voice or brain"},
    Option{"--quit"_L1, Argument::None, "quit"},
};

constexpr std::array panes{"now"_L1, "history"_L1, "listening"_L1, "voice"_L1, "brain"_L1};

struct AutostartWord {
    QLatin1StringView name;
    CommandLine::Autostart meaning;
};

constexpr std::array autostarts{
    AutostartWord{"on"_L1, CommandLine::Autostart::On},
    AutostartWord{"off"_L1, CommandLine::Autostart::Off},
    AutostartWord{"status"_L1, CommandLine::Autostart::Status},
};

CommandLine invalid(const QString &problem) {
    CommandLine line;
    line.mode = CommandLine::Mode::Invalid;
    line.problem = problem;
    return line;
}

CommandLine only(CommandLine::Mode mode, const QStringList &arguments) {
    if (arguments.size() > 1)
        return invalid(u"unexpected argument: "_s + arguments[1]);
    CommandLine line;
    line.mode = mode;
    return line;
}

CommandLine statusLine(const QStringList &arguments) {
    CommandLine line;
    line.mode = CommandLine::Mode::Status;
    for (const auto &argument : arguments.sliced(1)) {
        bool &flag = argument == u"--json"_s ? line.isJson : line.isFollowing;
        if ((argument != u"--json"_s && argument != u"--follow"_s) || flag)
            return invalid(u"unexpected argument: "_s + argument);
        flag = true;
    }
    return line;
}

CommandLine historyLine(const QStringList &arguments) {
    CommandLine line;
    line.mode = CommandLine::Mode::History;
    line.isJson = arguments.value(1) == u"--json"_s;
    const qsizetype most = line.isJson ? 2 : 1;
    return arguments.size() > most ? invalid(u"unexpected argument: "_s + arguments[most]) : line;
}

CommandLine autostartLine(const QStringList &arguments) {
    if (arguments.size() > 2)
        return invalid(u"unexpected argument: "_s + arguments[2]);
    const auto wanted = arguments.value(1);
    const auto *known = std::find_if(autostarts.begin(), autostarts.end(),
                                     [&](const auto &candidate) { return candidate.name == wanted; });
    if (known == autostarts.end())
        return invalid(u"--autostart needs on, off or status"_s);
    CommandLine line;
    line.mode = CommandLine::Mode::Autostart;
    line.autostart = known->meaning;
    return line;
}

CommandLine commandLine(const Option &option, const QStringList &arguments) {
    CommandLine line;
    line.mode = CommandLine::Mode::Command;
    line.command = RemoteCommand{option.name.sliced(2), std::nullopt};
    const qsizetype most = option.argument == Argument::None ? 1 : 2;
    if (arguments.size() > most)
        return invalid(u"unexpected argument: "_s + arguments[most]);
    if (option.argument == Argument::Text) {
        if (arguments.size() < 2)
            return invalid(option.name + u" needs a text"_s);
        if (arguments[1] == u"-"_s) {
            line.isTextOnInput = true;
            return line;
        }
        const auto text = CommandLine::checkedText(arguments[1].toUtf8());
        if (!text)
            return invalid(text.reason());
        line.command->text = *text;
    } else if (option.argument == Argument::Pane && arguments.size() == 2) {
        if (std::find(panes.begin(), panes.end(), arguments[1]) == panes.end())
            return invalid(u"no such pane: "_s + arguments[1]);
        line.command->text = arguments[1];
    }
    return line;
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments) {
    if (arguments.contains(u"--preview"_s)) {
        CommandLine line;
        line.mode = Mode::Preview;
        return line;
    }
    // A capture without a preview is ignored, with its path.
    auto rest = arguments;
    if (const auto capture = rest.indexOf(u"--capture"_s); capture >= 0)
        rest.remove(capture, std::min<qsizetype>(2, rest.size() - capture));
    if (rest.isEmpty())
        return {};

    const auto &first = rest.front();
    if (first == u"--version"_s)
        return only(Mode::Version, rest);
    if (first == u"--help"_s)
        return only(Mode::Help, rest);
    if (first == u"--doctor"_s)
        return only(Mode::Doctor, rest);
    if (first == u"--status"_s)
        return statusLine(rest);
    if (first == u"--history"_s)
        return historyLine(rest);
    if (first == u"--autostart"_s)
        return autostartLine(rest);
    const auto *option =
        std::find_if(commands.begin(), commands.end(), [&](const Option &known) { return known.name == first; });
    return option == commands.end() ? invalid(u"unknown argument: "_s + first) : commandLine(*option, rest);
}

Result<QString> CommandLine::checkedText(const QByteArray &bytes) {
    if (bytes.size() > maximumTextBytes)
        return Failure{u"the text is longer than 1 MiB"_s};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    if (decoder.hasError())
        return Failure{u"the text is not UTF-8"_s};
    auto trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return Failure{u"there is no text to say"_s};
    return trimmed;
}

std::vector<OptionGroup> CommandLine::options() {
    OptionGroup remote{u"To the one that runs (exit code 0 when it is done, 1 when none runs)"_s, {}};
    for (const auto &option : commands) {
        QString argument;
        if (option.argument == Argument::Text)
            argument = u"TEXT"_s;
        else if (option.argument == Argument::Pane)
            argument = u"[PANE]"_s;
        remote.options.push_back({option.name, argument, QString::fromUtf8(option.meaning)});
    }
    const auto add = [](OptionGroup &group, const char *name, const char *argument, const char *meaning) {
        group.options.push_back(
            {QString::fromLatin1(name), QString::fromLatin1(argument), QString::fromLatin1(meaning)});
    };
    add(remote, "--status", "[--json]", "print its state");
    add(remote, "--status", "--follow", "print its state at every change, until interrupted");
    add(remote, "--history", "[--json]", "list the conversations that its backend keeps, the newest first");

    OptionGroup own{u"For itself"_s, {}};
    add(own, "--autostart", "on|off", "start with the session, or not any more");
    add(own, "--autostart", "status", "print whether it does");
    add(own, "--doctor", "", "look at what it needs, and say what works and what to do (exit code 0 when all does)");
    add(own, "--preview", "[PANE]", "show the window with sample data, and nothing else");
    add(own, "--capture", "FILE", "with --preview: write a picture of it and end");
    add(own, "--version", "", "print the version");
    add(own, "--help", "", "print this");
    return {remote, own};
}

QString CommandLine::help() {
    QString text = u"Usage: palomet [OPTION]\n\n"
                   "Without an option: starts Palomet, or opens the window of the one that runs.\n"_s;
    for (const auto &group : options()) {
        text += u"\n%1:\n"_s.arg(group.title);
        for (const auto &option : group.options)
            text += u"  %1  %2\n"_s.arg(option.usage(), -22).arg(option.meaning);
    }
    return text;
}

} // namespace palomet
